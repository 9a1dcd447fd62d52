#pragma once

#include "art/PixelCanvas.h"

#include <QPainter>

namespace vexmoor {

/// The canvas as large as fits in `side` points at that many physical pixels a point, each of its
/// pixels a block of whole physical pixels. The image carries the ratio.
QImage crispPicture(const PixelCanvas& canvas, int side, double ratio);

/// Centred in the rectangle, on a physical pixel of the widget that is painted.
void drawCentred(QPainter& painter, const QRectF& rect, const QImage& picture);

} // namespace vexmoor
