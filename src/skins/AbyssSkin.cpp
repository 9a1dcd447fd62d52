#include "Skin.h"

#include "base/Marked.h"

namespace vexmoor {
namespace {

// clang-format off
constexpr std::string_view kRows[] = {
    "..........................KKKKK...",
    "........................KKPPPPTK..",
    ".....................KKKPPTTTTTtK.",
    ".........KKKKKKKKKKKKTPPUUTtKPTtK.",
    ".......KKHHHHHHHHHHHHKKKKKKKKPUtK.",
    "......KHHDDDDDDDDDDDDDDDDHHKKPUtK.",
    ".....KHHDggGGGGGGGGGGGGggDHHKPTtK.",
    "....KHHDgGGGLLGGGGGGGGGGGgDHKPUtK.",
    "....KHHDgGGGGGGGGGGGGGGGGgDHKPUtK.",
    "....KHHDDggGGGGGGGGGGGGggDDHKPTtK.",
    "....KBHHHDDggggggggggggDDHHKPTTtK.",
    "....KBBBHHHHHHHHHHHHHHHHHHBKPUTtK.",
    "...KDBBBBBBBBBBBBBBBBBBBBBKPTUtK..",
    "...KDDBBBBBBBBBBBBBBBBBBBKPTTttK..",
    "..KDDDDDDDDDDDDDDDDDDDDDDKPTTttK..",
    "..KDBBBWWBBBBBBBBBBBBBBBKPUUtttK..",
    "..KDBBWWWBBBBBBBBBBBBBBKPTTttKKK..",
    "..KDBBBWWBBBBBBBBBBBBKKPTTttKBDK..",
    "..KDBBBBHBBBBBBBBBBKKPPUTTttKDDK..",
    "..KDBBBBHBBBBBBKKKKPPTTUTttKBDDK..",
    "..KDBBBKKKKKKKKPPPPUUTTTttKBDDDK..",
    "..KDBKKPPPPPPPPUUTTTTTtttKBBDDDK..",
    "..KKKPPUUTTUUTTTTTTTttttKBBDDDDK..",
    "..KPPTTTTTTTTTTTttttttKKBBBDDDDK..",
    "..KPTTTTTTttttttttttKKBBKKKDDDDK..",
    ".KPTTTTTttttttttKKKKBBBKXKxKDDDK..",
    "KPTTTTTtttKKKKKKBBBKKBKXXxxxKDK...",
    "KPTTTTttKKBBBBBBBBKXxKBKKKKKDDK...",
    "KPTTTttKDBBBBBBBBBBKKDDDDDDDDK....",
    "KPTTTttKDDDDDDDDDDDDDDDDDDDDK.....",
    "KPTTTttKDDDDDDDDDDDDDDDDDDKK......",
    "KPtttttKKKKKKKKKKKKKKKKKKKK.......",
    "KPttttKDDK..............KDDK......",
    ".KKKKKKKKKSSSSSSSSSSSSSSKKKKS.....",
};
static_assert(isSized(kRows, 34, 34));
// clang-format on

constexpr Palette::Entry kExtraColours[] = {
    {'P', Pixel::fromHex(0xD98AC8)},
    {'T', Pixel::fromHex(0xA04E9C)},
    {'t', Pixel::fromHex(0x642C6E)},
    {'U', Pixel::fromHex(0xF6CBE0)},
};

} // namespace

const Skin& Skin::abyss() {
    static constexpr Skin skin{
        .id = "abyss",
        .name = marked("Abyss"),
        .blurb = marked("Pulled from somewhere very deep."),
        .outline = Pixel::fromHex(0x04101A),
        .shadow = Pixel::fromHex(0x0D2C40),
        .bodyColour = Pixel::fromHex(0x154560),
        .highlight = Pixel::fromHex(0x2A7A9A),
        .specular = Pixel::fromHex(0x7FD8EE),
        .acid = Pixel::fromHex(0x2EE0D0),
        .acidDark = Pixel::fromHex(0x0E8A8A),
        .acidLight = Pixel::fromHex(0xD6FFFB),
        .spark = Pixel::fromHex(0x9FFFF0),
        .details = {},
        .body = {.rows = kRows, .dx = -1, .dy = -3, .hoverRows = 0},
        .extraColours = kExtraColours,
    };
    return skin;
}

} // namespace vexmoor
