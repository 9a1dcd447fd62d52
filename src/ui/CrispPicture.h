#pragma once

#include "art/PixelCanvas.h"

#include <QPainter>

namespace vexmoor {

/// Scales the canvas to fit `side` points at `ratio` physical pixels per point, with each canvas
/// pixel a block of whole physical pixels. The image has that device pixel ratio.
QImage crispPicture(const PixelCanvas& canvas, int side, double ratio);

/// Draws the picture centred in the rectangle and aligned to physical pixels.
void drawCentred(QPainter& painter, const QRectF& rect, const QImage& picture);

} // namespace vexmoor
