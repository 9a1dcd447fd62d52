#pragma once

#include <QRect>

namespace vexmoor::wayland {

/// Where logical and physical pixels meet: at fractional scales only every few logical pixels is
/// there a whole physical one. A surface that begins and ends on the grid is not resampled. A
/// value.
class PixelGrid {
  public:
    /// Physical pixels a logical one, in 120th parts.
    explicit PixelGrid(double scale);

    [[nodiscard]] double scale() const { return m_scale; }
    /// Logical pixels from one line of the grid to the next.
    [[nodiscard]] int step() const { return m_step; }

    /// The line at or before a logical position.
    [[nodiscard]] int lineBefore(int logical) const;
    /// The smallest logical rectangle on the grid that covers a physical one.
    [[nodiscard]] QRect around(const QRect& physical) const;
    /// The physical rectangle of a logical one; exact on the grid.
    [[nodiscard]] QRect physical(const QRect& logical) const;

  private:
    double m_scale;
    int m_step;
};

} // namespace vexmoor::wayland
