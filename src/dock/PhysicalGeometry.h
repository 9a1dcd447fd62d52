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
    QRect available;  ///< without the panels
    double ratio = 1; ///< physical pixels a point

    static PhysicalScreen of(const QScreen& screen);
    /// All of them, the primary one first; never empty while there is an application.
    static std::vector<PhysicalScreen> all();

    /// From Qt's coordinates, in which a screen keeps its physical origin; to whole pixels.
    [[nodiscard]] QRect physical(const QRectF& points) const;
    [[nodiscard]] QRectF points(const QRect& physical) const;
};

/// The screen nearest to a point; `screens` is not empty.
const PhysicalScreen& nearestScreen(const std::vector<PhysicalScreen>& screens, QPoint point);

} // namespace vexmoor
