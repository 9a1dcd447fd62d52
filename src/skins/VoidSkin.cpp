#include "Skin.h"

#include "base/Marked.h"

namespace vexmoor {
namespace {

// clang-format off
constexpr std::string_view kRows[] = {
    "........KKKKKKKKKKKKKKKK........",
    "......KKHHHHHHHHHHHHHHHHKK......",
    ".....KHHDDDDDDDDDDDDDDDDHHK.....",
    "....KHHDggGGGGGGGGGGGGggDHHK....",
    "...KHHDgGGGLLGGGGGGGGGGGgDHHK...",
    "...KHHDgGGGGGGGGGGGGGGGGgDHHK...",
    "...KHHDDggGGGGGGGGGGGGggDDHHK...",
    "...KBHHHDDggggggggggggDDHHHBK...",
    "...KBBBHHHHHHHHHHHHHHHHHHBBBK...",
    "..KDBBBBBBBBBBBBBBBBBBBBBBBBDK..",
    "..KDDBBBBBBBBBBBBBBBBBBBBBBDDK..",
    ".KDDDDDDDDDDDDDDDDDDDDDDDDDDDDK.",
    ".KDBBBWWBBBBBBLLGGBBBBBBBBBBBDK.",
    ".KDBBWWWBBBBLLKKKKGGBBBBBBBBBDK.",
    ".KDBBBWWBBBBLKKKKKKGBBBBBBBBBDK.",
    ".KDBBBBHBBBLKKKKKKKKGBBBBBBBDDK.",
    ".KDBBBBHBBBGKKKKKKKKGBBBBBBBDDK.",
    ".KDBBBBBBBBGKKKKKKKKGBBBBBBDDDK.",
    ".KDBBBBBBBBGKKKKKKKKGBBBBBDDDDK.",
    ".KDDBBBBBBBBGKKKKKKGBBBBBDDDDDK.",
    "..KDDBBBBBBBGGKKKKGGBBBBDDDDDK..",
    "..KGDDBBBBBBBBGGGGBBBBDDDDDDGK..",
    "...KGDDDBBBBBBBBBBBBDDDDDDDGK...",
    "....KGGDDDDDDDDDDDDDDDDDDGGK....",
    ".....KKGGGGGGGGGGGGGGGGGGKK.....",
    "......KKKKKKKKKKKKKKKKKKKK......",
    "................................",
    "....KKLLLLLLLLLLLLLLLLLLLLKK....",
    "..KKLLKKKKKKKKKKKKKKKKKKKKLLKK..",
    "..KGLKKKKKKKKKKKKKKKKKKKKKKLGK..",
    "...KKGGGGGGGGGGGGGGGGGGGGGGKK...",
};
static_assert(isSized(kRows, 32, 31));
// clang-format on

} // namespace

const Skin& Skin::voidSkin() {
    static constexpr Skin skin{
        .id = "void",
        .name = marked("Void"),
        .blurb = marked("A terabyte went in. Nothing came out."),
        .outline = Pixel::fromHex(0x000000),
        .shadow = Pixel::fromHex(0x08060E),
        .bodyColour = Pixel::fromHex(0x120E1C),
        .highlight = Pixel::fromHex(0x2A2240),
        .specular = Pixel::fromHex(0x6A5AA0),
        .acid = Pixel::fromHex(0x7A6AD0),
        .acidDark = Pixel::fromHex(0x3A2A7A),
        .acidLight = Pixel::fromHex(0xFFFFFF),
        .spark = Pixel::fromHex(0xE8E0FF),
        .details = {},
        .body = {.rows = kRows, .dx = 0, .dy = 0, .hoverRows = 26},
        .extraColours = {},
    };
    return skin;
}

} // namespace vexmoor
