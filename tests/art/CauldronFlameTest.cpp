#include "Letters.h"

#include "art/CauldronArt.h"
#include "art/Flame.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

TEST(CauldronFlameTest, MatchesGoldenPictures) {
    for (const double height : {3.0, 9.5, 24.0}) {
        PixelCanvas canvas(34, 54);
        SeededRNG rng{42};
        CauldronArt::drawFlame(canvas, height, Skin::lava(), rng);
        const std::string rows = lettersOf(canvas, Skin::lava());
        const std::string name = "flame-lava-" + std::to_string(static_cast<int>(height));
        EXPECT_EQ(rows, goldenRows(name, rows)) << name;
    }
}

TEST(CauldronFlameTest, TakesOneRandomNumberPerRow) {
    for (const double height : {0.0, 0.4, 1.0, 23.6, 80.0}) {
        PixelCanvas canvas(34, 54);
        SeededRNG used{7};
        CauldronArt::drawFlame(canvas, height, Skin::iron(), used);
        SeededRNG counted{7};
        const int rows = static_cast<int>(std::lround(height));
        for (int i = 0; rows >= 1 && i <= rows; ++i)
            counted.next();
        EXPECT_EQ(used.state, counted.state) << height;
    }
}

TEST(CauldronFlameTest, StaysWithinItsWidthLimitAndAboveThePool) {
    for (std::uint64_t seed = 1; seed < 40; ++seed) {
        PixelCanvas canvas(34, 54);
        SeededRNG rng{seed};
        CauldronArt::drawFlame(canvas, 60, Skin::iron(), rng);
        for (int y = 0; y < 54; ++y) {
            for (int x = 0; x < 34; ++x) {
                if (canvas.at(x, y) != Pixel{}) {
                    ASSERT_LE(std::abs(x - 17), 10) << seed << ' ' << y;
                    ASSERT_LT(y, 30) << seed;
                }
            }
        }
    }
}

TEST(CauldronFlameTest, SwingsItsTipAndKeepsItsFoot) {
    const Flame left{.height = 20, .bend = 3, .phase = 5.5};
    const Flame right{.height = 20, .bend = 3, .phase = 2.4};
    EXPECT_EQ(left.columnAt(0), right.columnAt(0));
    EXPECT_NE(left.columnAt(20), right.columnAt(20));
    EXPECT_LE(std::abs(left.columnAt(20) - left.columnAt(0)), 3);
}

} // namespace
} // namespace vexmoor
