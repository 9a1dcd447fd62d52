#include "StandardBody.h"

#include "base/Marked.h"

namespace vexmoor {

const Skin& Skin::iron() {
    static constexpr Skin skin{
        .id = "iron",
        .name = marked("Iron"),
        .blurb = marked("The one you started with."),
        .outline = Pixel::fromHex(0x15151B),
        .shadow = Pixel::fromHex(0x33333D),
        .bodyColour = Pixel::fromHex(0x4C4C58),
        .highlight = Pixel::fromHex(0x7C7C8A),
        .specular = Pixel::fromHex(0xC9C9D6),
        .acid = Pixel::fromHex(0x4FD46F),
        .acidDark = Pixel::fromHex(0x2A8F48),
        .acidLight = Pixel::fromHex(0xB9F7C4),
        .spark = Pixel::fromHex(0x8FF0A4),
        .details = {},
        .body = kStandardBody,
        .extraColours = {},
    };
    return skin;
}

const Skin& Skin::copper() {
    static constexpr Skin skin{
        .id = "copper",
        .name = marked("Copper"),
        .blurb = marked("Warm metal, same old acid."),
        .outline = Pixel::fromHex(0x2A1510),
        .shadow = Pixel::fromHex(0x6E3A22),
        .bodyColour = Pixel::fromHex(0xA65C33),
        .highlight = Pixel::fromHex(0xD98C52),
        .specular = Pixel::fromHex(0xF7C893),
        .acid = Pixel::fromHex(0x4FD46F),
        .acidDark = Pixel::fromHex(0x2A8F48),
        .acidLight = Pixel::fromHex(0xB9F7C4),
        .spark = Pixel::fromHex(0x8FF0A4),
        .details = {},
        .body = kStandardBody,
        .extraColours = {},
    };
    return skin;
}

const Skin& Skin::cobalt() {
    static constexpr Skin skin{
        .id = "cobalt",
        .name = marked("Cobalt"),
        .blurb = marked("Blue flame. Burns colder, or so it claims."),
        .outline = Pixel::fromHex(0x15151B),
        .shadow = Pixel::fromHex(0x33333D),
        .bodyColour = Pixel::fromHex(0x4C4C58),
        .highlight = Pixel::fromHex(0x7C7C8A),
        .specular = Pixel::fromHex(0xC9C9D6),
        .acid = Pixel::fromHex(0x4A8EF0),
        .acidDark = Pixel::fromHex(0x2457B8),
        .acidLight = Pixel::fromHex(0xC4E1FF),
        .spark = Pixel::fromHex(0x9CCBFF),
        .details = {},
        .body = kStandardBody,
        .extraColours = {},
    };
    return skin;
}

const Skin& Skin::witchfire() {
    static constexpr Skin skin{
        .id = "witchfire",
        .name = marked("Witchfire"),
        .blurb = marked("Violet acid in a dark pot."),
        .outline = Pixel::fromHex(0x120D18),
        .shadow = Pixel::fromHex(0x2D2338),
        .bodyColour = Pixel::fromHex(0x443553),
        .highlight = Pixel::fromHex(0x6E5A86),
        .specular = Pixel::fromHex(0xC7B3E0),
        .acid = Pixel::fromHex(0xB257F0),
        .acidDark = Pixel::fromHex(0x7A2AB8),
        .acidLight = Pixel::fromHex(0xECCBFF),
        .spark = Pixel::fromHex(0xD99CFF),
        .details = {},
        .body = kStandardBody,
        .extraColours = {},
    };
    return skin;
}

const Skin& Skin::verdigris() {
    static constexpr Skin skin{
        .id = "verdigris",
        .name = marked("Verdigris"),
        .blurb = marked("Weathered bronze with a mossy patina."),
        .outline = Pixel::fromHex(0x0F1A16),
        .shadow = Pixel::fromHex(0x2B4A3A),
        .bodyColour = Pixel::fromHex(0x3F7159),
        .highlight = Pixel::fromHex(0x6AA882),
        .specular = Pixel::fromHex(0xBFE8CD),
        .acid = Pixel::fromHex(0x3CD6A2),
        .acidDark = Pixel::fromHex(0x1F8F6C),
        .acidLight = Pixel::fromHex(0xC6F7E6),
        .spark = Pixel::fromHex(0x9AF0CF),
        .details = {},
        .body = kStandardBody,
        .extraColours = {},
    };
    return skin;
}

const Skin& Skin::rust() {
    static constexpr Skin skin{
        .id = "rust",
        .name = marked("Rust"),
        .blurb = marked("It has seen things. Folders, mostly."),
        .outline = Pixel::fromHex(0x1D0F08),
        .shadow = Pixel::fromHex(0x4B2515),
        .bodyColour = Pixel::fromHex(0x7D3F1F),
        .highlight = Pixel::fromHex(0xB3673A),
        .specular = Pixel::fromHex(0xE0A070),
        .acid = Pixel::fromHex(0xD6A033),
        .acidDark = Pixel::fromHex(0x8F5A1A),
        .acidLight = Pixel::fromHex(0xFBE7A4),
        .spark = Pixel::fromHex(0xF0CF6C),
        .details = {},
        .body = kStandardBody,
        .extraColours = {},
    };
    return skin;
}

const Skin& Skin::lava() {
    static constexpr Skin skin{
        .id = "lava",
        .name = marked("Lava"),
        .blurb = marked("Basalt pot, magma inside."),
        .outline = Pixel::fromHex(0x0D0A0A),
        .shadow = Pixel::fromHex(0x2A2222),
        .bodyColour = Pixel::fromHex(0x3F3434),
        .highlight = Pixel::fromHex(0x6B5555),
        .specular = Pixel::fromHex(0xC9A8A8),
        .acid = Pixel::fromHex(0xFF7A1F),
        .acidDark = Pixel::fromHex(0xC23A0F),
        .acidLight = Pixel::fromHex(0xFFE29A),
        .spark = Pixel::fromHex(0xFFB347),
        .details = {},
        .body = kStandardBody,
        .extraColours = {},
    };
    return skin;
}

const Skin& Skin::frost() {
    static constexpr Skin skin{
        .id = "frost",
        .name = marked("Frost"),
        .blurb = marked("Rime on the iron. The flame does not melt it."),
        .outline = Pixel::fromHex(0x1A2430),
        .shadow = Pixel::fromHex(0x3A5068),
        .bodyColour = Pixel::fromHex(0x5A7A9A),
        .highlight = Pixel::fromHex(0x9EC0DC),
        .specular = Pixel::fromHex(0xEAF6FF),
        .acid = Pixel::fromHex(0x7FD8EE),
        .acidDark = Pixel::fromHex(0x3A9AB8),
        .acidLight = Pixel::fromHex(0xF0FCFF),
        .spark = Pixel::fromHex(0xD0F4FF),
        .details = {},
        .body = kStandardBody,
        .extraColours = {},
    };
    return skin;
}

} // namespace vexmoor
