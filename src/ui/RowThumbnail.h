#pragma once

#include <QImage>
#include <QPainter>

namespace vexmoor {

/// Paints the picture of an item into a square with round corners: a preview fills it, an icon
/// stands in it. Without an image it paints a sheet that bears the name's extension or first
/// letter. The image is
/// scaled once for each size.
void paintThumbnail(QPainter& painter, const QRect& square, const QImage& image, bool isPreview,
                    const QString& name, const QPalette& palette);

} // namespace vexmoor
