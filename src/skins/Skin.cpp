#include "Skin.h"

#include <algorithm>
#include <array>

namespace vexmoor {

Palette Skin::palette() const {
    Palette palette;
    palette.set('K', outline);
    palette.set('D', shadow);
    palette.set('B', bodyColour);
    palette.set('H', highlight);
    palette.set('W', specular);
    palette.set('G', acid);
    palette.set('g', acidDark);
    palette.set('L', acidLight);
    palette.set('S', {0, 0, 0, 70});
    palette.set('X', Pixel::fromHex(0xF1EAD8));
    palette.set('x', Pixel::fromHex(0x9B927C));
    for (const auto& [letter, colour] : extraColours)
        palette.set(letter, colour);
    return palette;
}

std::span<const Skin> Skin::all() {
    static const std::array skins{
        iron(),  copper(),   cobalt(), witchfire(), verdigris(), rust(),      lava(), bone(),
        frost(), obsidian(), abyss(),  mahogany(),  voidSkin(),  starlight(), gold(),
    };
    return skins;
}

const Skin& Skin::named(std::string_view id) {
    const auto found = std::ranges::find(all(), id, &Skin::id);
    return found == all().end() ? iron() : *found;
}

} // namespace vexmoor
