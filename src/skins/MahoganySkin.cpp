#include "Skin.h"

#include "base/Marked.h"

namespace vexmoor {
namespace {

// clang-format off
constexpr std::string_view kRows[] = {
    ".........KKKKKKKKKKKKKKKK.........",
    ".......KKMMMMMMMMMMMMMNNNKK.......",
    "......KMNDDDDDDDDDDDDDDDDNnK......",
    ".....KMNDggGGGGGGGGGGGGggDNnK.....",
    "....KMNDgGGGLLGGGGGGGGGGGgDNnK....",
    "....KMNDgGGGGGGGGGGGGGGGGgDNnK....",
    "....KMNDDggGGGGGGGGGGGGggDDNnK....",
    "....KMMMMDDggggggggggggDDMNNnK....",
    "....KMYYNNNNNNNNNNNNNNNNNNNnnK....",
    "....KDBKnnnnnnnnnnnnnnnnnKDDDK....",
    "..KMMYBBKDDDKDDDDDDDDKDDDKDDNNNK..",
    "..KnnnMMMMDDKDDDDDDDDKDDMMNNnnnK..",
    "...KBHnnnnMYMMMMMMMMMMYMnnnnDDK...",
    "...KBHHHKBnnnnnnnnnnnnnnBKBBDDK...",
    "...KBHHHKBBBMMMMMMMMMNBBBKBBDDK...",
    "..KBHWWHKBBBMXXXXXXXXnBBBKBBDDDK..",
    "..KBWWWHKBBBMXXxxxxXXnBBBKBBDDDK..",
    "..KBHWWHKBBBNNNNNNNNNnBBBKBBDDDK..",
    "..KBHHHHKBBBKBNKKKKnBKBBBKBBDDDK..",
    "..KBHHHHKBBBKBBMNnnBBKBBBKBBDDDK..",
    ".KMMYHHHKBBBKBBBBBBBBKBBBKBBDNNNK.",
    ".KnnnMMMMBBBKBBBBBBBBKBBBMMNNnnnK.",
    "..KBHnnnnMYMMMMMMMMMMMMYMnnnnDDK..",
    "...KBHHHKnnnnnnnnnnnnnnnnKBBDDK...",
    "...KDBBBKDDDKDDDDDDDDKDDDKDDDDK...",
    "....KDBBKDDDKDDDDDDDDKDDDKDDDK....",
    ".....KKDKDDDKDDDDDDDDKDDDKDKK.....",
    ".......KKKKKKKKKKKKKKKKKKKK.......",
    "......KMMNNnK........KMMNNnK......",
    "......KMKMKnK........KMKMKnK......",
    ".....SSKKKKKSSSSSSSSSSKKKKKSS.....",
};
static_assert(isSized(kRows, 34, 31));
// clang-format on

constexpr Palette::Entry kExtraColours[] = {
    {'M', Pixel::fromHex(0xE8B84A)},
    {'N', Pixel::fromHex(0xB8862A)},
    {'n', Pixel::fromHex(0x7A5216)},
    {'Y', Pixel::fromHex(0xFFE48A)},
};

} // namespace

const Skin& Skin::mahogany() {
    static constexpr Skin skin{
        .id = "mahogany",
        .name = marked("Mahogany"),
        .blurb = marked("Carved from a thousand empty folders."),
        .outline = Pixel::fromHex(0x1A0A06),
        .shadow = Pixel::fromHex(0x4A1E12),
        .bodyColour = Pixel::fromHex(0x6F3220),
        .highlight = Pixel::fromHex(0xA0523A),
        .specular = Pixel::fromHex(0xD9956F),
        .acid = Pixel::fromHex(0x4FD46F),
        .acidDark = Pixel::fromHex(0x2A8F48),
        .acidLight = Pixel::fromHex(0xB9F7C4),
        .spark = Pixel::fromHex(0x8FF0A4),
        .details = {},
        .body = {.rows = kRows, .dx = -1, .dy = 0, .hoverRows = 0},
        .extraColours = kExtraColours,
    };
    return skin;
}

} // namespace vexmoor
