#pragma once

#include <QPointF>
#include <QRectF>

#include <algorithm>

namespace vexmoor {

/// A rectangle in desktop points: origin at the bottom-left of the primary screen, y up.
struct DeskRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] constexpr double maxX() const { return x + width; }
    [[nodiscard]] constexpr double maxY() const { return y + height; }

    [[nodiscard]] constexpr bool intersects(const DeskRect& other) const {
        return x < other.maxX() && other.x < maxX() && y < other.maxY() && other.y < maxY();
    }

    /// Returns the smallest rectangle that contains both.
    [[nodiscard]] constexpr DeskRect united(const DeskRect& other) const {
        const double left = std::min(x, other.x);
        const double bottom = std::min(y, other.y);
        return {left, bottom, std::max(maxX(), other.maxX()) - left,
                std::max(maxY(), other.maxY()) - bottom};
    }

    bool operator==(const DeskRect&) const = default;
};

/// Convert between Qt's coordinates (y down) and DeskRect. `primary` is the primary screen's
/// geometry in Qt's coordinates.
inline DeskRect deskRect(const QRectF& rect, const QRectF& primary) {
    return {rect.x() - primary.x(), primary.bottom() - rect.bottom(), rect.width(), rect.height()};
}
inline QRectF windowRect(const DeskRect& rect, const QRectF& primary) {
    return {rect.x + primary.x(), primary.bottom() - rect.maxY(), rect.width, rect.height};
}

} // namespace vexmoor
