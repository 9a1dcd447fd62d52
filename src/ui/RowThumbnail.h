#pragma once

#include <QImage>
#include <QPainter>

namespace vexmoor {

/// Paints an item's picture in a square with round corners: a preview fills it, an icon is centred.
/// Without an image, draws a sheet with the name's extension or first letter. Scaled images are
/// cached by size.
void paintThumbnail(QPainter& painter, const QRect& square, const QImage& image, bool isPreview,
                    const QString& name, const QPalette& palette);

} // namespace vexmoor
