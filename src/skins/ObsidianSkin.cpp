#include "Skin.h"

#include "base/Marked.h"

namespace vexmoor {
namespace {

// clang-format off
constexpr std::string_view kRows[] = {
    "..........KK....KK....KK..........",
    ".........KVDK..KVDK..KVDK.........",
    "...K....KVHDK.KVHDDK.KVHDK....K...",
    "..KVK....KKKKKKKKKKKKKKKK....KVK..",
    "..KVDK.KKHHHHHHHHHHHHHHHHKK.KDVK..",
    "..KVDDKHHDDDDDDDDDDDDDDDDHHKDDVK..",
    "...KDKHHDggGGGGGGGGGGGGggDHHKDK...",
    "....KHHDgGGGLLGGGGGGGGGGGgDHHK....",
    "....KHHDgGGGGGGGGGGGGGGGGgDHHK....",
    "....KHHDDggGGGGGGGGGGGGggDDHHK....",
    "....KBHHHDDggggggggggggDDHHHBK....",
    "....KBBBHHHHHHHHHHHHHHHHHHBBBK....",
    "..KKVVBBBBBBBBBBBBBBBBBBBBBBHHKK..",
    ".KVVBBBBBBBBBBBBBBBBBBBBBBBBBBHHK.",
    "KHHHVVVVVVBBBBBBBBBBBBBBHHHHHHDDDK",
    ".KHWWHHHVBVVVVVVgHHHHHHHDDDDDDDDK.",
    ".KHWWHHHVBBBBBBgLGBBBBBBBDDDDDDDK.",
    "..KHWWHHVBBBBBBBGgBBBBBBBDDDDDDK..",
    "..KHHWHHHVBBBBBBGBBBBBBBBDDDDDDK..",
    "...KHHHHHVBBBBBBgLBBBBBBDDDDDDK...",
    "....KHHHHHBBBBBBBGBBBBBBDDDDDK....",
    "....KHHHHHBBBBBBGgBgBBBBDDDDDK....",
    ".....KHHHHHBBBBBGBBBGBBDDDDDK.....",
    "......KHHHHBBBBBBGBBBBBDDDDK......",
    "......KHHHHBBBBBBgGBBBBDDDDK......",
    ".......KHHHHBBBBBBGBBBBDDDK.......",
    "........KHHHBBBBBBgBBBBDDK........",
    "........KHHHBBBBBBBBBBDDDK........",
    ".........KKKKKKKKKKKKKKKK.........",
    ".........KVDK.KVHBDK.KVDK.........",
    "........KVDK..KVHDDK..KVDK........",
    ".......KVDK....KVDK....KVDK.......",
    ".......KK.......KK.......KK.......",
    "......SSSSSSSSSSSSSSSSSSSSSS......",
};
static_assert(isSized(kRows, 34, 34));
// clang-format on

constexpr Palette::Entry kExtraColours[] = {
    {'V', Pixel::fromHex(0x64649C)},
};

} // namespace

const Skin& Skin::obsidian() {
    static constexpr Skin skin{
        .id = "obsidian",
        .name = marked("Obsidian"),
        .blurb = marked("Volcanic glass. Reflects nothing good."),
        .outline = Pixel::fromHex(0x000000),
        .shadow = Pixel::fromHex(0x0E0E14),
        .bodyColour = Pixel::fromHex(0x1C1C26),
        .highlight = Pixel::fromHex(0x3C3C52),
        .specular = Pixel::fromHex(0x9A9AD0),
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
