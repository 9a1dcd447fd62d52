#include "Letters.h"

#include "art/CauldronArt.h"

#include "skins/PixelPrinter.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

int differingPixels(const PixelCanvas& one, const PixelCanvas& other) {
    int count = 0;
    for (std::size_t i = 0; i < one.pixels().size(); ++i)
        count += one.pixels()[i] == other.pixels()[i] ? 0 : 1;
    return count;
}

TEST(CauldronIdleTest, MatchesGoldenPictures) {
    struct Case {
        const char* name;
        const Skin& skin;
        bool still;
        int tick;
    };
    const Case cases[] = {{"still-iron", Skin::iron(), true, 0},
                          {"still-bone", Skin::bone(), true, 0},
                          {"idle-gold-93", Skin::gold(), false, 93},
                          {"idle-void-20", Skin::voidSkin(), false, 20}};
    for (const auto& [name, skin, still, tick] : cases) {
        const std::string rows = lettersOf(CauldronArt::idle(tick, still, 0, skin), skin);
        EXPECT_EQ(rows, goldenRows(name, rows)) << name;
    }
}

TEST(CauldronIdleTest, DrawsBubblesByTheirPhases) {
    const Skin& skin = Skin::iron();
    struct Case {
        const char* what;
        int tick; ///< for the bubble at column 9, period 23, outside the glint's ticks
        int x, y;
        Pixel expected;
    };
    const Case cases[] = {
        {"nothing yet", 23 + 10, 10, 28, skin.acid},
        {"swelling", 23 + 11, 10, 28, skin.acidLight},
        {"swelling, its back", 23 + 16, 10, 27, skin.acid},
        {"risen", 23 + 17, 10, 27, skin.acidLight},
        {"risen, wider", 23 + 19, 11, 27, skin.acidLight},
        {"a spark", 23 + 20, 10, 25, skin.spark},
        {"the ring", 23 + 21, 11, 26, skin.acid},
        {"a drop", 23 + 22, 10, 22, skin.acidDark},
        {"gone", 46, 10, 22, Pixel{}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CauldronArt::idle(c.tick, false, 0, skin).at(c.x, c.y), c.expected) << c.what;
}

TEST(CauldronIdleTest, DoesNotChangeWhenStill) {
    const Skin& skin = Skin::iron();
    const PixelCanvas still = CauldronArt::idle(0, true, 0, skin);
    for (const int tick : {1, 11, 90, 4711})
        EXPECT_EQ(CauldronArt::idle(tick, true, 0, skin), still) << tick;
    EXPECT_EQ(CauldronArt::idle(64, false, 0, skin), CauldronArt::idle(65, false, 0, skin))
        << "unchanged canvases compare equal without rendering";
    EXPECT_NE(CauldronArt::idle(5, false, 0, skin), CauldronArt::idle(6, false, 0, skin));
}

TEST(CauldronIdleTest, ShowsAGlintEveryNinetyTicks) {
    const Skin& skin = Skin::iron();
    const PixelCanvas still = CauldronArt::idle(0, true, 0, skin);
    for (const int tick : {91, 93, 96, 101}) {
        const int column = tick % 4 == 0 ? 18 : 17;
        const PixelCanvas frame = CauldronArt::idle(tick, false, 0, skin);
        int found = 0;
        for (int y = 0; y <= 23; ++y)
            found += frame.at(column, y) == still.at(column, y) ? 0 : 1;
        EXPECT_EQ(found, 1) << tick;
    }
    EXPECT_EQ(CauldronArt::idle(102, false, 0, skin).at(17, 20), Pixel{});
}

TEST(CauldronIdleTest, OnlyHoveringPotsFloat) {
    for (const Skin& skin : Skin::all()) {
        const PixelCanvas frame = CauldronArt::idle(10, false, 0, skin);
        ASSERT_EQ(frame.overlays().size(), skin.id == "void" ? 1U : 0U) << skin.id;
    }
    const PixelCanvas raised = CauldronArt::idle(9, false, 1, Skin::voidSkin());
    const PixelCanvas::Overlay& pot = raised.overlays().front();
    EXPECT_TRUE(pot.crisp);
    EXPECT_DOUBLE_EQ(pot.yOffset, -1.5);
    EXPECT_EQ(CauldronArt::idle(10, true, 0, Skin::voidSkin()).overlays().front().yOffset, 0);
    // At scale 12 the pot is 18 output pixels higher, while the ring stays on the ground.
    const QImage high = raised.nsImage(12);
    const QImage low = CauldronArt::idle(10, true, 0, Skin::voidSkin()).nsImage(12);
    EXPECT_EQ(high.pixel(200, 23 * 12 - 18), low.pixel(200, 23 * 12));
    EXPECT_EQ(high.pixel(200, 23 * 12 - 19), 0U);
    EXPECT_EQ(high.pixel(200, 51 * 12), low.pixel(200, 51 * 12));
}

TEST(CauldronIdleTest, LiftsThePotAndDrawsTheGroundOnItsOwnCanvas) {
    PixelCanvas pot(34, 54);
    PixelCanvas ground(34, 54);
    CauldronArt::drawPot(pot, &ground, Skin::voidSkin(), 2);
    EXPECT_EQ(pot.at(16, 21), Skin::voidSkin().outline);
    EXPECT_EQ(pot.at(16, 48), Pixel{});
    EXPECT_EQ(ground.at(16, 46), Pixel{});
    EXPECT_EQ(ground.at(16, 48), Skin::voidSkin().acidLight);

    PixelCanvas whole(34, 54);
    CauldronArt::drawPot(whole, nullptr, Skin::voidSkin(), 2);
    ground.merge(pot, 0, 0);
    EXPECT_EQ(differingPixels(whole, ground), 0);
}

} // namespace
} // namespace vexmoor
