#pragma once

#include "art/PixelCanvas.h"

#include <QImage>
#include <QRect>

#include <vector>

namespace vexmoor {

/// Scales the canvas to fill a size in physical pixels: with square blocks if the size is a
/// multiple of the canvas, otherwise by nearest neighbour.
QImage enlarged(const PixelCanvas& canvas, QSize size);

/// Returns the area with at least half opacity, for windows that cannot be translucent.
std::vector<QRect> opaqueShape(const QImage& image);

/// Draws the image over an outline of `width` pixels around its shape.
QImage ringed(const QImage& image, int width, QColor colour);

} // namespace vexmoor
