#include "skins/Skin.h"

#include "skins/PixelPrinter.h"

#include <gtest/gtest.h>

#include <set>

namespace vexmoor {
namespace {

TEST(SkinTest, IsFoundByExactIdOrIsIron) {
    for (const Skin& skin : Skin::all())
        EXPECT_EQ(Skin::named(skin.id).name, skin.name);
    EXPECT_EQ(Skin::named("frost").id, "frost");
    EXPECT_EQ(Skin::named("Frost").id, "iron");
    EXPECT_EQ(Skin::named("").id, "iron");
}

TEST(SkinTest, HasAColourForEachUsedLetter) {
    for (const Skin& skin : Skin::all()) {
        const Palette palette = skin.palette();
        std::set<char> letters;
        for (const std::string_view row : skin.body.rows)
            letters.insert(row.begin(), row.end());
        for (const Skin::Detail& detail : skin.details) {
            for (const std::string_view row : detail.rows)
                letters.insert(row.begin(), row.end());
        }
        letters.erase('.');
        for (const char letter : letters)
            EXPECT_NE(palette.find(letter), nullptr) << skin.id << ' ' << letter;
    }
}

TEST(SkinTest, HasTransparentDotsAndATranslucentShadow) {
    for (const Skin& skin : Skin::all()) {
        const Palette palette = skin.palette();
        EXPECT_EQ(palette.find('.'), nullptr) << skin.id;
        EXPECT_EQ(palette.find(' '), nullptr) << skin.id;
        EXPECT_EQ(*palette.find('S'), (Pixel{0, 0, 0, 70})) << skin.id;
    }
    EXPECT_EQ(*Skin::gold().palette().find('R'), Pixel::fromHex(0xC4223C));
    EXPECT_EQ(Skin::iron().palette().find('R'), nullptr);
}

TEST(SkinTest, FitsIntoTheFrameAndReachesItsLastRow) {
    for (const Skin& skin : Skin::all()) {
        const Skin::Body& body = skin.body;
        const int left = 1 + body.dx;
        const int width = static_cast<int>(body.rows.front().size());
        EXPECT_EQ(left, (34 - width) / 2) << skin.id;
        EXPECT_EQ(23 + body.dy + static_cast<int>(body.rows.size()), 54) << skin.id;
    }
}

} // namespace
} // namespace vexmoor
