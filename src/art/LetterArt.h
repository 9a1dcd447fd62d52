#pragma once

#include "PixelCanvas.h"

#include "skins/LetterRows.h"
#include "skins/Palette.h"

namespace vexmoor {

/// Blends a letter picture onto a canvas with its top-left corner at (left, top). Letters without a
/// colour leave the canvas unchanged.
void drawLetters(PixelCanvas& canvas, LetterRows rows, const Palette& palette, int left, int top);

} // namespace vexmoor
