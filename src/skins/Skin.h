#pragma once

#include "LetterRows.h"
#include "Palette.h"

#include <span>
#include <string_view>

namespace vexmoor {

/// One look of the cauldron: the pot as letter rows, and the colours of pot and acid. `id`
/// identifies it. Cheap to copy: texts and rows are views of constants.
struct Skin {
    /// A letter picture drawn over the pot, relative to the standard body's top-left corner.
    struct Detail {
        LetterRows rows;
        int x = 0;
        int y = 0;
    };

    /// The pot. `dx` and `dy` offset it from the standard position; the first `hoverRows` rows
    /// float and bob, the others stay on the ground.
    struct Body {
        LetterRows rows;
        int dx = 0;
        int dy = 0;
        int hoverRows = 0;
    };

    /// The id is stored in the progression record; name and blurb are shown to the user.
    std::string_view id;
    std::string_view name;
    std::string_view blurb;

    Pixel outline;
    Pixel shadow;
    Pixel bodyColour;
    Pixel highlight;
    Pixel specular;
    Pixel acid;
    Pixel acidDark;
    Pixel acidLight;
    Pixel spark;

    std::span<const Detail> details;
    Body body;
    std::span<const Palette::Entry> extraColours;

    /// Returns the colours of the row letters: K D B H W G g L are the colours above from outline
    /// to acidLight, S is the cast shadow, X and x are bone; extraColours are added.
    [[nodiscard]] Palette palette() const;

    /// Returns the fifteen skins in the order of display and unlocking.
    static std::span<const Skin> all();
    /// Returns the skin with that id (case-sensitive), or iron for any other text.
    static const Skin& named(std::string_view id);

    static const Skin& iron();
    static const Skin& copper();
    static const Skin& cobalt();
    static const Skin& witchfire();
    static const Skin& verdigris();
    static const Skin& rust();
    static const Skin& lava();
    static const Skin& bone();
    static const Skin& frost();
    static const Skin& obsidian();
    static const Skin& abyss();
    static const Skin& mahogany();
    static const Skin& voidSkin(); ///< the id is "void", a C++ keyword
    static const Skin& starlight();
    static const Skin& gold();
};

} // namespace vexmoor
