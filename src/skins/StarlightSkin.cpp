#include "Skin.h"

#include "base/Marked.h"

namespace vexmoor {
namespace {

// clang-format off
constexpr std::string_view kRows[] = {
    ".....W..........Y...........W.....",
    "....WYW....................WYW....",
    ".....W................W.....W.....",
    ".........KKKKKKKKKKKKKKKK.........",
    ".......KKHHHHHHHHHHHHHHHHKK.......",
    "......KHHDDDDDDDDDDDDDDDDHHK......",
    ".....KHHDggGGGGGGGGGGGGggDHHK.....",
    "....KHHDgGGGLLGGGGGGGGGGGgDHHK....",
    "....KHHDgGGGGGGGGGGGGGGGGgDHHK....",
    "....KHHDDggGGGGGGGGGGGGggDDHHK....",
    "....KBHHHDDggggggggggggDDHHHBK....",
    "....KBBBHHHHHHHHHHHHHHHHHHBBBK....",
    "...KDBBBBBBBBBBBBBBBBBBBBBBBBDK...",
    "...KDDBBBBBBBBBBBBBBBBBBBBBBDDK...",
    "..KDDDDDDDDDDDDDDDDDDDDDDDDDDDDK..",
    "..KDBBBWWYBBBBBBBBBBBBBBWBBBBBDK..",
    "..KDBBWWWBBBBBBBBBBBBBBWYWBBBBDK..",
    "..KDBBBWWBBBBBBBBBBBBBBBWBBBBBDK..",
    ".gKDBBBBHBBBBBBBBBBBBBBBBBBBBDDKg.",
    "g.KDBBWBHBBBBBBBBBBBBBBBBBBBBDDK.g",
    "..KDBBBBBBBBBBBBBBBBBBBBBBBBDDDK..",
    "g.KDBBBBBBBBBBBBBBBBBBBBBBBBDDDK.g",
    ".gLLBBBBBBBBBBBBBBBBBBBBBBBDDDLLg.",
    "..KDgggggBBBBBBBBBBBBBBBBggYggDK..",
    "..KDDBBBBgggggLLLLLLgggggBDDDDDK..",
    "..KDDBBBBWBBBBBBBBBBBBBBBBDDDDDK..",
    "...KDDBBWYWBBBBBBBBBBBBBBDDDDDK...",
    "...KDDDBBWBBBBBBBBBBBBBDDDDDDDK...",
    "....KDDDDBBBBBBBBBBBBDDDDDDDDK....",
    ".....KDDDDDDDDDDDDDDDDDDDDDDK.....",
    "......KKDDDDDDDDDDDDDDDDDDKK......",
    ".......KKKKKKKKKKKKKKKKKKKK.......",
    "....KyYK................KYyK......",
    ".....KyYYYYYYYYYYYYYYYYYYyK.......",
};
static_assert(isSized(kRows, 34, 34));
// clang-format on

constexpr Palette::Entry kExtraColours[] = {
    {'Y', Pixel::fromHex(0xFFE27A)},
    {'y', Pixel::fromHex(0xC9A23C)},
};

} // namespace

const Skin& Skin::starlight() {
    static constexpr Skin skin{
        .id = "starlight",
        .name = marked("Starlight"),
        .blurb = marked("A year of daily offerings. The pot glows on its own."),
        .outline = Pixel::fromHex(0x2A2A3A),
        .shadow = Pixel::fromHex(0x7A7A9A),
        .bodyColour = Pixel::fromHex(0xB8B8D4),
        .highlight = Pixel::fromHex(0xE4E4F4),
        .specular = Pixel::fromHex(0xFFFFFF),
        .acid = Pixel::fromHex(0xA8C4FF),
        .acidDark = Pixel::fromHex(0x6A7AD8),
        .acidLight = Pixel::fromHex(0xFFFFFF),
        .spark = Pixel::fromHex(0xE6F0FF),
        .details = {},
        .body = {.rows = kRows, .dx = -1, .dy = -3, .hoverRows = 0},
        .extraColours = kExtraColours,
    };
    return skin;
}

} // namespace vexmoor
