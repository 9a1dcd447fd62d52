#pragma once

#include "PixelCanvas.h"

namespace vexmoor {

/// The bitmap of a smooth overlay: its image filling w by h times `detail` pixels with high-quality
/// interpolation, turned by `angle` about the centre, at `opacity`, only what `keep` keeps. Of a
/// crisp one: the image itself. Premultiplied; null when there is nothing to draw.
QImage renderedOverlay(const PixelCanvas::Overlay& overlay);

/// Draws an overlay over a premultiplied picture of a canvas at `scale`, each bitmap pixel a block
/// with hard edges, clipped to the picture.
void paintOverlay(QImage& target, const PixelCanvas::Overlay& overlay, int scale);

/// The picture in the middle of a transparent square, so that it is not distorted in one.
QImage squared(const QImage& picture);

} // namespace vexmoor
