#include "Letters.h"

#include "art/CauldronArt.h"

#include "skins/PixelPrinter.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

QImage redSquare() {
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::red);
    return image;
}

/// Counts the pixels of an overlay's bitmap that its mask keeps.
int keptCells(const PixelCanvas::Overlay& overlay) {
    int count = 0;
    for (int row = 0; row < overlay.h * overlay.detail; ++row) {
        for (int column = 0; column < overlay.w * overlay.detail; ++column)
            count += overlay.keep(column, row) ? 1 : 0;
    }
    return count;
}

TEST(CauldronBurnTest, MatchesGoldenPictures) {
    const Skin& skin = Skin::copper();
    const CauldronArt::Frame frame =
        CauldronArt::burn({.t = 0.5, .height = 12, .seed = 99, .splitAtPool = true, .skin = skin});
    const std::string scene = lettersOf(frame.scene, skin);
    const std::string flame = lettersOf(frame.flame, skin);
    EXPECT_EQ(scene, goldenRows("burn-copper-scene", scene));
    EXPECT_EQ(flame, goldenRows("burn-copper-flame", flame));
}

TEST(CauldronBurnTest, SameSeedGivesSamePixels) {
    const CauldronArt::Burn moment{.t = 0.7,
                                   .height = 23.4,
                                   .simmer = true,
                                   .icon = redSquare(),
                                   .seed = 12345,
                                   .skin = Skin::abyss()};
    CauldronArt::Burn other = moment;
    other.seed = 54321;
    const QImage image = CauldronArt::burn(moment).scene.nsImage(6);
    EXPECT_EQ(CauldronArt::burn(moment).scene.nsImage(6), image);
    EXPECT_NE(CauldronArt::burn(other).scene.nsImage(6), image);
}

TEST(CauldronBurnTest, CentresTheItemInTheFlame) {
    struct Case {
        double height;
        int x, y, side;
    };
    const Case cases[] = {{24, 7, 5, 20}, {8, 14, 20, 6}, {0, 16, 26, 3}, {23.9, 7, 5, 20}};
    for (const Case& c : cases) {
        const CauldronArt::Frame frame = CauldronArt::burn(
            {.t = 0.5, .height = c.height, .icon = redSquare(), .skin = Skin::iron()});
        const PixelCanvas::Overlay& item = frame.flame.overlays().front();
        EXPECT_EQ(item.x, c.x) << c.height;
        EXPECT_EQ(item.y, c.y) << c.height;
        EXPECT_EQ(item.w, c.side) << c.height;
        EXPECT_EQ(item.h, c.side) << c.height;
        EXPECT_EQ(item.detail, 2);
        EXPECT_FALSE(item.crisp);
    }
}

TEST(CauldronBurnTest, DissolvesTheItemCompletely) {
    int before = 1600;
    for (const double t : {0.5, 0.6, 0.65, 0.75, 0.85}) {
        const CauldronArt::Frame frame = CauldronArt::burn(
            {.t = t, .height = 24, .icon = redSquare(), .seed = 5, .skin = Skin::iron()});
        const int kept = keptCells(frame.flame.overlays().front());
        EXPECT_NEAR(kept, 1600 * (1 - std::clamp((t - 0.6) * 4, 0.0, 1.0)), 80) << t;
        EXPECT_LE(kept, before);
        before = kept;
    }
    EXPECT_EQ(before, 0);
}

TEST(CauldronBurnTest, LowersAFloatingPotToItsStandardPosition) {
    const Skin& skin = Skin::voidSkin();
    const auto rimAt = [&skin](double t, double lift) {
        const PixelCanvas scene = CauldronArt::burn({.t = t, .lift = lift, .skin = skin}).scene;
        int row = 0;
        while (scene.at(16, row) != skin.outline)
            ++row;
        return row;
    };
    EXPECT_EQ(rimAt(0, 1.5), 22);
    EXPECT_EQ(rimAt(0, -1.5), 24);
    EXPECT_EQ(rimAt(0.1, 1.5), 23);
    EXPECT_EQ(rimAt(1, 1.5), 23);
}

TEST(CauldronBurnTest, ShowsTheWholeFlameInFrontOfThePotSplitOrNot) {
    CauldronArt::Burn moment{.t = 0.5, .height = 8, .seed = 3, .skin = Skin::iron()};
    for (const bool split : {false, true}) {
        moment.splitAtPool = split;
        const CauldronArt::Frame frame = CauldronArt::burn(moment);
        for (int y = 23; y < 54; ++y) {
            for (int x = 0; x < 34; ++x) {
                if (frame.flame.at(x, y).a == 255) {
                    ASSERT_EQ(frame.scene.at(x, y), frame.flame.at(x, y)) << x << ' ' << y;
                }
            }
        }
    }
}

TEST(CauldronBurnTest, LightsRunesOnlyOnABareBelly) {
    const auto runePixels = [](const Skin& skin) {
        const CauldronArt::Frame lit = CauldronArt::burn({.t = 0.5, .skin = skin});
        const PixelCanvas still = CauldronArt::idle(0, true, 0, skin);
        int count = 0;
        for (int y = 38; y < 46; ++y) {
            for (int x = 0; x < 34; ++x)
                count += lit.scene.at(x, y) == still.at(x, y) ? 0 : 1;
        }
        return count;
    };
    std::size_t carved = 0;
    for (const LetterRows rune : CauldronArt::runes()) {
        for (const std::string_view row : rune)
            carved += static_cast<std::size_t>(std::ranges::count(row, '#'));
    }
    EXPECT_EQ(runePixels(Skin::iron()), static_cast<int>(carved));
    EXPECT_EQ(runePixels(Skin::mahogany()), 0);
    EXPECT_EQ(runePixels(Skin::gold()), 0);
}

} // namespace
} // namespace vexmoor
