#pragma once

#include "PixelCanvas.h"

#include "skins/Skin.h"

namespace vexmoor {

/// Lights the runes on the belly of a pot at its place, one after another: none at 0, all at 1.
/// Only on a bare belly: none is lit where a pot carries something in their place.
void paintRunes(PixelCanvas& pot, const Skin& skin, double lit);

} // namespace vexmoor
