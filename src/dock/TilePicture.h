#pragma once

#include "art/PixelCanvas.h"

#include <QImage>

#include <optional>

namespace vexmoor {

/// What the tile shows: the icon, the ring while something is dragged over it, the skull. A value.
struct TilePicture {
    std::optional<PixelCanvas> icon;
    bool isHovered = false;
    bool isBadged = false;

    /// In canvas pixels; the picture is square.
    static const int kSide;

    /// Physical pixels a canvas pixel has where `scale` of them are a logical one.
    static int cellAt(double scale);

    /// The picture in physical pixels, kSide * cell wide and high.
    [[nodiscard]] QImage image(int cell) const;
};

} // namespace vexmoor
