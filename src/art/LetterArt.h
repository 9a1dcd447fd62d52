#pragma once

#include "PixelCanvas.h"

#include "skins/LetterRows.h"
#include "skins/Palette.h"

namespace vexmoor {

/// Blends a letter picture onto a canvas, its top-left corner at (left, top); letters without a
/// colour leave the canvas as it is.
void drawLetters(PixelCanvas& canvas, LetterRows rows, const Palette& palette, int left, int top);

} // namespace vexmoor
