#include "art/AchievementArt.h"

#include "art/LetterArt.h"
#include "progression/Achievement.h"
#include "skins/PixelPrinter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace vexmoor {

namespace {

/// Returns the coloured pixels that touch a transparent one without a dark outline between.
std::string unlinedPixels(const PixelCanvas& icon) {
    const Pixel line = *AchievementArt::palette().find('K');
    const auto isOpen = [&](int x, int y) {
        const bool inside = x >= 0 && y >= 0 && x < icon.width() && y < icon.height();
        return inside && icon.at(x, y).a < 255;
    };
    std::string places;
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            const Pixel pixel = icon.at(x, y);
            const bool isColoured = pixel.a == 255 && pixel != line;
            if (isColoured &&
                (isOpen(x - 1, y) || isOpen(x + 1, y) || isOpen(x, y - 1) || isOpen(x, y + 1)))
                places += '(' + std::to_string(x) + ' ' + std::to_string(y) + ')';
        }
    }
    return places;
}

TEST(AchievementArtTest, EachAchievementHasItsOwnIcon) {
    std::vector<PixelCanvas> seen{AchievementArt::render("locked", 1)};
    for (const AchievementIcon& icon : AchievementArt::icons()) {
        const PixelCanvas canvas = AchievementArt::render(icon.id, 1);
        EXPECT_THAT(seen, testing::Not(testing::Contains(canvas))) << icon.id;
        seen.push_back(canvas);
    }
    EXPECT_TRUE(std::ranges::equal(AchievementArt::icons(), Achievement::all(), {},
                                   &AchievementIcon::id, &Achievement::id));
}

TEST(AchievementArtTest, DarkOutlineSeparatesColoursFromBackground) {
    for (const AchievementIcon& icon : AchievementArt::icons()) {
        // The edge of the picture cuts off the first achievement's pot.
        const std::string_view expected = icon.id == "first" ? "(15 8)" : "";
        EXPECT_EQ(unlinedPixels(AchievementArt::render(icon.id, 1)), expected) << icon.id;
    }
}

TEST(AchievementArtTest, UnknownIdsShowThePadlock) {
    const PixelCanvas padlock = AchievementArt::render("locked", 1);
    EXPECT_EQ(padlock.at(7, 8), Pixel::fromHex(0x15151B)) << "the keyhole";
    EXPECT_EQ(padlock.at(4, 8), Pixel::fromHex(0xF5D04A)) << "the brass";
    for (const std::string_view id : {"", "First", "first ", "items", "streak3650"})
        EXPECT_EQ(AchievementArt::render(id, 1), padlock) << id;
}

TEST(AchievementArtTest, EnlargesEachPixelToABlockFromScaleTwo) {
    const PixelCanvas icon = AchievementArt::render("omnivore", 1);
    for (const int scale : {-3, 0})
        EXPECT_EQ(AchievementArt::render("omnivore", scale), icon) << scale;
    for (const int scale : {2, 5}) {
        const PixelCanvas large = AchievementArt::render("omnivore", scale);
        ASSERT_EQ(large.width(), 16 * scale);
        ASSERT_EQ(large.height(), 16 * scale);
        for (int y = 0; y < large.height(); ++y) {
            for (int x = 0; x < large.width(); ++x)
                ASSERT_EQ(large.at(x, y), icon.at(x / scale, y / scale)) << x << ' ' << y;
        }
    }
}

TEST(AchievementArtTest, GlowIsTranslucentAndDotIsTransparent) {
    PixelCanvas canvas(2, 1);
    const std::string_view rows[] = {"h."};
    drawLetters(canvas, rows, AchievementArt::palette(), 0, 0);
    EXPECT_EQ(canvas.at(0, 0), (Pixel{0x4F, 0xD4, 0x6F, 90}));
    EXPECT_EQ(canvas.at(1, 0), Pixel{});
}

} // namespace

} // namespace vexmoor
