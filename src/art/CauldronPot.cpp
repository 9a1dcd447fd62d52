#include "CauldronArt.h"
#include "LetterArt.h"

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kBodyLeft = 1;
constexpr int kBodyTop = 23;

Skin& currentSkin() {
    static Skin skin = Skin::iron();
    return skin;
}

} // namespace

const Skin& CauldronArt::current() {
    return currentSkin();
}

void CauldronArt::setCurrent(const Skin& skin) {
    currentSkin() = skin;
}

void CauldronArt::drawPot(PixelCanvas& pot, PixelCanvas* ground, const Skin& skin, int lift) {
    const Palette palette = skin.palette();
    const Skin::Body& body = skin.body;
    const int left = kBodyLeft + body.dx;
    const int top = kBodyTop + body.dy - lift;
    if (ground != nullptr) {
        const std::size_t floating =
            std::min(static_cast<std::size_t>(body.hoverRows), body.rows.size());
        drawLetters(pot, body.rows.first(floating), palette, left, top);
        drawLetters(*ground, body.rows.subspan(floating), palette, left,
                    top + static_cast<int>(floating));
    } else {
        drawLetters(pot, body.rows, palette, left, top);
    }
    for (const Skin::Detail& detail : skin.details)
        drawLetters(pot, detail.rows, palette, kBodyLeft + detail.x, kBodyTop + detail.y - lift);
}

} // namespace vexmoor
