#include "CrispPicture.h"

#include <algorithm>
#include <cmath>

namespace vexmoor {

QImage crispPicture(const PixelCanvas& canvas, int side, double ratio) {
    const int longest = std::max({canvas.width(), canvas.height(), 1});
    QImage image = canvas.nsImage(std::max(1, static_cast<int>(side * ratio) / longest));
    image.setDevicePixelRatio(ratio);
    return image;
}

void drawCentred(QPainter& painter, const QRectF& rect, const QImage& picture) {
    const double ratio = picture.devicePixelRatio();
    const auto aligned = [ratio](double points) { return std::round(points * ratio) / ratio; };
    const QSizeF size = picture.deviceIndependentSize();
    painter.drawImage(QPointF(aligned(rect.center().x() - size.width() / 2),
                              aligned(rect.center().y() - size.height() / 2)),
                      picture);
}

} // namespace vexmoor
