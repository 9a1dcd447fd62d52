#pragma once

#include "PixelCanvas.h"

#include "skins/Skin.h"

namespace vexmoor {

/// Lights the runes on the belly of a pot in its standard position one after another: none at 0,
/// all at 1. Skips runes where the pot has decoration.
void paintRunes(PixelCanvas& pot, const Skin& skin, double lit);

} // namespace vexmoor
