#include "skins/Pixel.h"

#include "skins/PixelPrinter.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vexmoor {

namespace {

TEST(PixelTest, ReadsHexadecimalColoursAsOpaque) {
    EXPECT_EQ(Pixel::fromHex(0xF1EAD8), (Pixel{0xF1, 0xEA, 0xD8, 255}));
}

TEST(PixelTest, CompositesStraightAlpha) {
    struct Case {
        const char* what;
        Pixel top, bottom, expected;
    };
    const Pixel clear;
    const Case cases[] = {
        {"half over clear keeps its colour", {10, 20, 30, 128}, clear, {10, 20, 30, 128}},
        {"half over opaque mixes", {255, 0, 101, 128}, {0, 255, 100, 255}, {128, 127, 101, 255}},
        {"opaque replaces", {1, 2, 3, 255}, {9, 9, 9, 40}, {1, 2, 3, 255}},
        {"clear over clear", {9, 9, 9, 0}, clear, clear},
        {"clear leaves what is there", {9, 9, 9, 0}, {1, 2, 3, 77}, {1, 2, 3, 77}},
        {"two shadows add up", {0, 0, 0, 70}, {0, 0, 0, 70}, {0, 0, 0, 121}},
        {"faint over faint", {200, 0, 0, 1}, {0, 200, 0, 1}, {100, 100, 0, 2}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(composited(c.top, c.bottom), c.expected) << c.what;
}

TEST(PixelTest, MatchesTheFloatingPointFormula) {
    for (unsigned top = 1; top < 255; top += 11) {
        for (unsigned bottom = 0; bottom < 256; bottom += 17) {
            const double topAlpha = top / 255.0;
            const double alpha = topAlpha + (1 - topAlpha) * (bottom / 255.0);
            const double red = (topAlpha * 200 + (1 - topAlpha) * (bottom / 255.0) * 31) / alpha;
            const Pixel result = composited({200, 0, 0, static_cast<std::uint8_t>(top)},
                                            {31, 0, 0, static_cast<std::uint8_t>(bottom)});
            EXPECT_NEAR(result.r, red, 0.5 + 1e-9) << top << " over " << bottom;
            EXPECT_NEAR(result.a, alpha * 255, 0.5 + 1e-9) << top << " over " << bottom;
        }
    }
}

} // namespace
} // namespace vexmoor
