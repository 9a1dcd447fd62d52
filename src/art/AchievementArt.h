#pragma once

#include "AchievementIcons.h"
#include "PixelCanvas.h"

#include <span>
#include <string_view>

namespace vexmoor {

/// Paints the achievement icons. Thread-safe.
class AchievementArt {
  public:
    AchievementArt() = delete;

    /// Returns the colours of the icons' letters.
    static const Palette& palette();

    /// Returns one icon per achievement, in the catalogue's order.
    static std::span<const AchievementIcon> icons();

    /// Returns the achievement's icon, or the padlock for any other id ("locked"), with each pixel
    /// drawn as a block of `scale` × `scale`. A scale below 2 means no enlargement.
    static PixelCanvas render(std::string_view id, int scale);
};

} // namespace vexmoor
