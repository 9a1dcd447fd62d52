#pragma once

#include <QRect>
#include <QRectF>
#include <QString>

#include <vector>

class QScreen;

namespace vexmoor {

/// A screen in physical pixels.
struct PhysicalScreen {
    QString name;
    QRect geometry;
    QRect available;  ///< area without panels
    double ratio = 1; ///< physical pixels per point

    static PhysicalScreen of(const QScreen& screen);
    /// Returns all screens, the primary one first; never empty while there is an application.
    static std::vector<PhysicalScreen> all();

    /// Converts from Qt's coordinates, in which a screen keeps its physical origin, to whole
    /// pixels.
    [[nodiscard]] QRect physical(const QRectF& points) const;
    [[nodiscard]] QRectF points(const QRect& physical) const;
};

/// Returns the screen nearest to the point; `screens` must not be empty.
const PhysicalScreen& nearestScreen(const std::vector<PhysicalScreen>& screens, QPoint point);

} // namespace vexmoor
