#pragma once

#include "PixelCanvas.h"

#include "skins/Skin.h"

namespace vexmoor {

/// Lights the runes on the belly of a pot at its place, one after another: none at 0, all at 1.
/// Only where the belly is bare, so that no rune is cut by what a pot carries there.
void paintRunes(PixelCanvas& pot, const Skin& skin, double lit);

} // namespace vexmoor
