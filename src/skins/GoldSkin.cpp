#include "Skin.h"

#include "base/Marked.h"

namespace vexmoor {
namespace {

// clang-format off
constexpr std::string_view kRows[] = {
    "...............KKKK...............",
    ".........KK...KPRRrK...KK.........",
    "........KPRK..KRRrrK..KPRK........",
    "........KRrKKKKHHBDKKKKRrK........",
    ".......KKHHHHHHHHHHHHHHHHKK.......",
    "......KHHDDDDDDDDDDDDDDDDHHK......",
    ".....KHHDggGGGGGGGGGGGGggDHHK.....",
    "....KHHDgGGGLLGGGGGGGGGGGgDHHK....",
    "....KHHDgGGGGGGGGGGGGGGGGgDHHK....",
    "....KHHDDggGGGGGGGGGGGGggDDHHK....",
    "....KBHHHDDggggggggggggDDHHHBK....",
    "....KBBBHHHHHHHHHHHHHHHHHHBBBK....",
    ".....KKDDBBBBBBBBBBBBBBBBDDKK.....",
    ".......KDDDDDDDDDDDDDDDDDDK.......",
    "...KKHHHKDDDDDDDDDDDDDDDDKBDDKK...",
    "..KDBBHHHHHHHHHHHHHHHHHHBBBDDDDK..",
    ".KKDBBBBBBBBBBBBBBBBBBBBBBBBDDDKK.",
    ".KHKKPRKDDDDDDDDDDDDDDDDDDKPRKKDK.",
    ".KBKKRrKHKPRKHHKPRKHHKPRKHKRrKKDK.",
    ".KBBKDDDDKRrKBBKRrKBBKRrKDDDDKDDK.",
    ".KDBBKKDDDDDDDDDDDDDDDDDDDKKDDDDK.",
    ".KDBWWBBBBBBBBBBBBBBBBBBBBBBDDDDK.",
    "..KDBWWBBBBBBBBBBBBBBBBBBBBDDDDK..",
    "..KDBBHBBBBBBBBBBBBBBBBBBBBDDDDK..",
    "...KDDDDDDDDDDDDDDDDDDDDDDDDDDK...",
    "....KDHHHHHHHHHHHHHHHHBBBDDDDK....",
    "......KKKDDDBBBBBBBDDDDDDKKK......",
    ".........KKKKHBBBBBDDKKKK.........",
    "............KHHBBBBDDK............",
    ".............KHHBBDDK.............",
    "...........KKHHHBBDDDKK...........",
    "........KKKHHHHBBBBDDDDKKK........",
    "......KKHHHHHBBBBBBBBDDDDDKK......",
    "....SSKKKKKKKKKKKKKKKKKKKKKKSS....",
};
static_assert(isSized(kRows, 34, 34));
// clang-format on

constexpr Palette::Entry kExtraColours[] = {
    {'R', Pixel::fromHex(0xC4223C)},
    {'r', Pixel::fromHex(0x6E0E20)},
    {'P', Pixel::fromHex(0xFF8F9C)},
};

} // namespace

const Skin& Skin::gold() {
    static constexpr Skin skin{
        .id = "gold",
        .name = marked("Gold"),
        .blurb = marked("Ten thousand souls buy a lot of gilding."),
        .outline = Pixel::fromHex(0x3A2608),
        .shadow = Pixel::fromHex(0x9A6A12),
        .bodyColour = Pixel::fromHex(0xD9A21E),
        .highlight = Pixel::fromHex(0xF5D04A),
        .specular = Pixel::fromHex(0xFFF6C0),
        .acid = Pixel::fromHex(0x4FD46F),
        .acidDark = Pixel::fromHex(0x2A8F48),
        .acidLight = Pixel::fromHex(0xB9F7C4),
        .spark = Pixel::fromHex(0x8FF0A4),
        .details = {},
        .body = {.rows = kRows, .dx = -1, .dy = -3, .hoverRows = 0},
        .extraColours = kExtraColours,
    };
    return skin;
}

} // namespace vexmoor
