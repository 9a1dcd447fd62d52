#include "Glow.h"

#include "Accent.h"

#include <QRadialGradient>

#include <cmath>
#include <numbers>

namespace vexmoor {

void paintGlow(QPainter& painter, const QRectF& pot, const QColor& colour, const QColor& ground) {
    constexpr int kStops = 16;
    const double strength = isDark(ground) ? 0.5 : 0.6;
    const double radius = pot.width() * 0.85;
    QRadialGradient gradient(pot.center(), radius);
    for (int stop = 0; stop <= kStops; ++stop) {
        const double at = static_cast<double>(stop) / kStops;
        QColor light = colour;
        light.setAlphaF(static_cast<float>(strength * (1 + std::cos(std::numbers::pi * at)) / 2));
        gradient.setColorAt(at, light);
    }
    const QRectF lit(pot.center() - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
    painter.fillRect(lit, gradient);
}

} // namespace vexmoor
