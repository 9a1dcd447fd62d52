#include "AchievementArt.h"

#include "LetterArt.h"

#include <algorithm>

namespace vexmoor {
namespace {

const AchievementIcon& iconOf(std::string_view id) {
    const auto icons = AchievementArt::icons();
    const auto found = std::ranges::find(icons, id, &AchievementIcon::id);
    return found == icons.end() ? kPadlockIcon : *found;
}

PixelCanvas enlarged(const PixelCanvas& canvas, int scale) {
    PixelCanvas result(canvas.width() * scale, canvas.height() * scale);
    for (int y = 0; y < result.height(); ++y) {
        for (int x = 0; x < result.width(); ++x)
            result.set(x, y, canvas.at(x / scale, y / scale));
    }
    return result;
}

} // namespace

const Palette& AchievementArt::palette() {
    static constexpr Palette kPalette = achievementPalette();
    return kPalette;
}

std::span<const AchievementIcon> AchievementArt::icons() {
    return kAchievementIcons;
}

PixelCanvas AchievementArt::render(std::string_view id, int scale) {
    PixelCanvas icon(AchievementIcon::kSide, AchievementIcon::kSide);
    drawLetters(icon, iconOf(id).rows, palette(), 0, 0);
    return scale < 2 ? icon : enlarged(icon, scale);
}

} // namespace vexmoor
