#pragma once

#include "AchievementIcons.h"
#include "PixelCanvas.h"

#include <span>
#include <string_view>

namespace vexmoor {

/// Paints the achievements' icons. Any thread.
class AchievementArt {
  public:
    AchievementArt() = delete;

    /// What the letters of the icons stand for.
    static const Palette& palette();

    /// One icon for each achievement, in the catalogue's order.
    static std::span<const AchievementIcon> icons();

    /// The icon of that achievement, or the padlock for any other id ("locked"), each of its
    /// pixels a block of `scale` by `scale`. A scale below 2 does not enlarge.
    static PixelCanvas render(std::string_view id, int scale);
};

} // namespace vexmoor
