#pragma once

#include <QRect>

namespace vexmoor::wayland {

/// The positions at which a logical pixel boundary is also a physical one: at fractional scales
/// only every few logical pixels. A surface that starts and ends on this grid is not resampled.
class PixelGrid {
  public:
    /// `scale` is in physical pixels per logical pixel and is rounded to 1/120.
    explicit PixelGrid(double scale);

    [[nodiscard]] double scale() const { return m_scale; }
    /// Returns the distance of the grid lines in logical pixels.
    [[nodiscard]] int step() const { return m_step; }

    /// Returns the grid line at or before a logical position.
    [[nodiscard]] int lineBefore(int logical) const;
    /// Returns the smallest logical rectangle on the grid that covers a physical one.
    [[nodiscard]] QRect around(const QRect& physical) const;
    /// Converts a logical rectangle to physical pixels; exact on the grid.
    [[nodiscard]] QRect physical(const QRect& logical) const;

  private:
    double m_scale;
    int m_step;
};

} // namespace vexmoor::wayland
