#pragma once

#include "skins/LetterRows.h"
#include "skins/Palette.h"

#include <array>
#include <string_view>

namespace vexmoor {

/// An achievement's picture in the letters of achievementPalette().
struct AchievementIcon {
    static constexpr int kSide = 16;

    std::string_view id;
    std::array<std::string_view, kSide> rows;
};

/// One icon per achievement, in the catalogue's order.
extern const std::array<AchievementIcon, 19> kAchievementIcons;
/// The icon of locked achievements.
extern const AchievementIcon kPadlockIcon;

/// Returns the icons' colours, grouped by material, each group from dark to light.
constexpr Palette achievementPalette() {
    constexpr auto kHex = &Pixel::fromHex;
    constexpr std::array<Palette::Entry, 37> kEntries{{
        // iron
        {'K', kHex(0x15151B)},
        {'D', kHex(0x33333D)},
        {'B', kHex(0x4C4C58)},
        {'H', kHex(0x7C7C8A)},
        {'W', kHex(0xC9C9D6)},
        {'v', kHex(0x231D2E)},
        // acid, its glow last
        {'g', kHex(0x2A8F48)},
        {'G', kHex(0x4FD46F)},
        {'L', kHex(0xB9F7C4)},
        {'h', kHex(0x4FD46F).withAlpha(90)},
        // gold
        {'n', kHex(0x9A6A12)},
        {'N', kHex(0xD9A21E)},
        {'Y', kHex(0xF5D04A)},
        {'J', kHex(0xFFF6C0)},
        // paper and bone
        {'x', kHex(0x9B927C)},
        {'O', kHex(0xC9BEA2)},
        {'X', kHex(0xF1EAD8)},
        // water
        {'b', kHex(0x2457B8)},
        {'C', kHex(0x4A8EF0)},
        {'c', kHex(0xC4E1FF)},
        // fire
        {'r', kHex(0x8A1E0A)},
        {'R', kHex(0xE0461A)},
        {'F', kHex(0xFF7A1F)},
        {'f', kHex(0xFFE29A)},
        // violet
        {'p', kHex(0x55237F)},
        {'P', kHex(0x9A4AE0)},
        {'q', kHex(0xD9A8FF)},
        // ghosts and glass
        {'s', kHex(0x3A5068)},
        {'I', kHex(0x9EC0DC)},
        {'e', kHex(0xEAF6FF)},
        // scales
        {'t', kHex(0x2B4A3A)},
        {'T', kHex(0x3F7159)},
        {'u', kHex(0x6AA882)},
        // copper and wood, the darkest last
        {'m', kHex(0x6E3A22)},
        {'M', kHex(0xA65C33)},
        {'Q', kHex(0xD98C52)},
        {'w', kHex(0x3A1A10)},
    }};
    Palette palette;
    for (const Palette::Entry& entry : kEntries)
        palette.set(entry.letter, entry.colour);
    return palette;
}

} // namespace vexmoor
