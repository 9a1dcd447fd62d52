#pragma once

#include "art/PixelCanvas.h"

#include <QImage>

#include <optional>

namespace vexmoor {

/// The tile's picture: the icon, a ring during a drag over it, and the skull.
struct TilePicture {
    std::optional<PixelCanvas> icon;
    bool isHovered = false;
    bool isBadged = false;

    /// The side of the square picture in canvas pixels.
    static const int kSide;

    /// Returns the physical pixels per canvas pixel at a scale of `scale` physical pixels per
    /// point.
    static int cellAt(double scale);

    /// Returns the picture in physical pixels, kSide * cell wide and high.
    [[nodiscard]] QImage image(int cell) const;
};

} // namespace vexmoor
