#pragma once

#include "PixelCanvas.h"

namespace vexmoor {

/// Renders the bitmap of an overlay, premultiplied. A smooth overlay is scaled to w × h times
/// `detail` pixels with high-quality interpolation, rotated by `angle` about its centre, drawn with
/// `opacity` and masked by `keep`; a crisp one is its image. Null if there is nothing to draw.
QImage renderedOverlay(const PixelCanvas::Overlay& overlay);

/// Draws an overlay over a premultiplied picture of a canvas at `scale`. Each bitmap pixel becomes
/// a block with hard edges, clipped to the picture.
void paintOverlay(QImage& target, const PixelCanvas::Overlay& overlay, int scale);

/// Centres the picture in a transparent square, so that scaling to a square does not distort it.
QImage squared(const QImage& picture);

} // namespace vexmoor
