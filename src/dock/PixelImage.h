#pragma once

#include "art/PixelCanvas.h"

#include <QImage>
#include <QRect>

#include <vector>

namespace vexmoor {

/// The canvas filling both axes of a size in physical pixels: blocks of whole pixels where the size
/// is a multiple of the canvas, else the nearest pixel's colour.
QImage enlarged(const PixelCanvas& canvas, QSize size);

/// The part of an image that is more opaque than not, for windows that cannot be translucent.
std::vector<QRect> opaqueShape(const QImage& image);

/// The image over a ring of `width` pixels around its outline.
QImage ringed(const QImage& image, int width, QColor colour);

} // namespace vexmoor
