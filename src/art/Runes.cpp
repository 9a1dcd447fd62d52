#include "Runes.h"

#include "CauldronArt.h"
#include "LetterArt.h"

#include <algorithm>
#include <cmath>

namespace vexmoor {
namespace {

/// The alchemical signs of fire, salt and water.
constexpr std::string_view kRunes[][5] = {
    {"..#..", ".#.#.", ".#.#.", "#...#", "#####"},
    {".###.", "#...#", "#####", "#...#", ".###."},
    {"#####", "#...#", ".#.#.", ".#.#.", "..#.."},
};

/// The positions follow the belly's curve.
struct Place {
    int x;
    int y;
};
constexpr Place kPlaces[] = {{9, 39}, {15, 40}, {21, 39}};

bool isBare(const PixelCanvas& pot, LetterRows rune, Place place, const Skin& skin) {
    for (int y = 0; y < static_cast<int>(rune.size()); ++y) {
        for (int x = 0; x < static_cast<int>(rune.front().size()); ++x) {
            if (pot.at(place.x + x, place.y + y) != skin.bodyColour)
                return false;
        }
    }
    return true;
}

/// Returns the acid colour that contrasts with the belly.
Pixel inkOf(const Skin& skin) {
    return skin.bodyColour.g > 0x90 ? skin.acidDark : skin.acid;
}

} // namespace

std::span<const LetterRows> CauldronArt::runes() {
    static constexpr LetterRows all[] = {kRunes[0], kRunes[1], kRunes[2]};
    return all;
}

void paintRunes(PixelCanvas& pot, const Skin& skin, double lit) {
    const auto runes = CauldronArt::runes();
    for (std::size_t i = 0; i < runes.size(); ++i) {
        if (!isBare(pot, runes[i], kPlaces[i], skin))
            return;
    }
    for (std::size_t i = 0; i < runes.size(); ++i) {
        const double share =
            std::clamp(lit * static_cast<double>(runes.size()) - static_cast<double>(i), 0.0, 1.0);
        Palette palette;
        palette.set('#',
                    inkOf(skin).withAlpha(static_cast<std::uint8_t>(std::lround(share * 255))));
        drawLetters(pot, runes[i], palette, kPlaces[i].x, kPlaces[i].y);
    }
}

} // namespace vexmoor
