#include "PhysicalGeometry.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace vexmoor {

PhysicalScreen PhysicalScreen::of(const QScreen& screen) {
    PhysicalScreen made{.name = screen.name(),
                        .geometry = {screen.geometry().topLeft(), QSize()},
                        .available = {},
                        .ratio = screen.devicePixelRatio()};
    // Qt rounds the size to whole points; truncate, so that no pixel is off the screen.
    const QSizeF size = QSizeF(screen.size()) * made.ratio;
    made.geometry.setSize({static_cast<int>(size.width()), static_cast<int>(size.height())});
    made.available = made.physical(screen.availableGeometry()) & made.geometry;
    return made;
}

std::vector<PhysicalScreen> PhysicalScreen::all() {
    std::vector<PhysicalScreen> screens;
    for (const QScreen* screen : QGuiApplication::screens()) // the primary screen comes first
        screens.push_back(of(*screen));
    return screens;
}

QRect PhysicalScreen::physical(const QRectF& points) const {
    const QPointF origin = geometry.topLeft();
    const QPointF corner = (points.topLeft() - origin) * ratio + origin;
    return {corner.toPoint(), (points.size() * ratio).toSize()};
}

QRectF PhysicalScreen::points(const QRect& physical) const {
    const QPointF origin = geometry.topLeft();
    return {(QPointF(physical.topLeft()) - origin) / ratio + origin,
            QSizeF(physical.size()) / ratio};
}

const PhysicalScreen& nearestScreen(const std::vector<PhysicalScreen>& screens, QPoint point) {
    const auto distance = [point](const PhysicalScreen& screen) {
        const QRect& area = screen.geometry;
        const QPoint inside(std::clamp(point.x(), area.left(), area.right()),
                            std::clamp(point.y(), area.top(), area.bottom()));
        return (point - inside).manhattanLength();
    };
    return *std::ranges::min_element(screens, {}, distance);
}

} // namespace vexmoor
