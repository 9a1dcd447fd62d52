#include "TileBadge.h"

#include "art/LetterArt.h"

namespace vexmoor {
namespace {

constexpr std::size_t kSide = 13;

constexpr std::string_view kRows[] = {
    "....KKKKK....", //
    "..KKRRRRRKK..", //
    ".KRRrrrrrRRK.", //
    ".KRrBBBBBrRK.", //
    "KRrBBBBBBBrRK", //
    "KRrBkkBkkBrRK", //
    "KRrBkkBkkBrRK", //
    "KRrBBBkBBBrRK", //
    "KRrrBBBBBrrRK", //
    ".KRrBkBkBrRK.", //
    ".KRRrrrrrRRK.", //
    "..KKRRRRRKK..", //
    "....KKKKK....", //
};
static_assert(isSized(kRows, kSide, kSide));

PixelCanvas painted() {
    Palette palette;
    palette.set('K', Pixel::fromHex(0x3A0A10)); // the rim
    palette.set('R', Pixel::fromHex(0xE5484D));
    palette.set('r', Pixel::fromHex(0xB4232C));
    palette.set('B', Pixel::fromHex(0xFFF4E6)); // bone
    palette.set('k', Pixel::fromHex(0x3A0A10)); // the sockets
    PixelCanvas badge(kSide, kSide);
    drawLetters(badge, kRows, palette, 0, 0);
    return badge;
}

} // namespace

const PixelCanvas& tileBadge() {
    static const PixelCanvas badge = painted();
    return badge;
}

} // namespace vexmoor
