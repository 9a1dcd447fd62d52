#include "StandardBody.h"

#include "base/Marked.h"

namespace vexmoor {
namespace {

// clang-format off
constexpr std::string_view kSkullRows[] = {
    ".XXX.",
    "XxXxX",
    "XXXXX",
    ".XxX.",
};
static_assert(isSized(kSkullRows, 5, 4));
// clang-format on

/// A grinning skull in the acid.
constexpr Skin::Detail kDetails[] = {{.rows = kSkullRows, .x = 18, .y = 3}};

} // namespace

const Skin& Skin::bone() {
    static constexpr Skin skin{
        .id = "bone",
        .name = marked("Bone"),
        .blurb = marked("Bleached pot, something grinning in the broth."),
        .outline = Pixel::fromHex(0x2A2620),
        .shadow = Pixel::fromHex(0x8A8068),
        .bodyColour = Pixel::fromHex(0xC4B89C),
        .highlight = Pixel::fromHex(0xE8DEC4),
        .specular = Pixel::fromHex(0xFDF8EC),
        .acid = Pixel::fromHex(0x7AD04A),
        .acidDark = Pixel::fromHex(0x3F8A2A),
        .acidLight = Pixel::fromHex(0xE3FFC6),
        .spark = Pixel::fromHex(0xC2F58E),
        .details = kDetails,
        .body = kStandardBody,
        .extraColours = {},
    };
    return skin;
}

} // namespace vexmoor
