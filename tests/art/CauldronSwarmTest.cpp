#include "Letters.h"

#include "art/CauldronArt.h"
#include "art/SwarmItem.h"

#include "skins/PixelPrinter.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

std::vector<QImage> icons(std::size_t count) {
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::red);
    return std::vector<QImage>(count, image);
}

TEST(CauldronSwarmTest, MatchesGoldenPictures) {
    const Skin& skin = Skin::frost();
    const CauldronArt::SwarmFrame frame = CauldronArt::swarm(1.0, icons(1), 8, 0, skin);
    const std::string flame = lettersOf(frame.flame, skin);
    EXPECT_EQ(flame, goldenRows("swarm-frost-flame", flame));
}

TEST(CauldronSwarmTest, SameSeedGivesSamePixels) {
    const auto picture = [](std::uint64_t seed) {
        return CauldronArt::swarm(1.4, icons(10), seed, 0, Skin::iron()).flame.nsImage(3);
    };
    EXPECT_EQ(picture(8), picture(8));
    EXPECT_NE(picture(8), picture(9));
}

TEST(CauldronSwarmTest, StartsItemsOneAfterAnotherAndEndsEmpty) {
    const std::vector<QImage> three = icons(3);
    const auto overlays = [&three](double time) {
        return CauldronArt::swarm(time, three, 8, 0, Skin::iron()).flame.overlays().size();
    };
    EXPECT_EQ(overlays(0.1), 1U);
    EXPECT_EQ(overlays(0.4), 2U);
    EXPECT_EQ(overlays(0.7), 3U);
    EXPECT_EQ(overlays(2 * 0.3 + 1.55), 0U);
    EXPECT_EQ(CauldronArt::swarm(0, {}, 8, 0, Skin::iron()).flame.overlays().size(), 0U);
}

TEST(CauldronSwarmTest, SceneAndFlameCanvasAgree) {
    const CauldronArt::SwarmFrame frame = CauldronArt::swarm(1.3, icons(6), 8, 0, Skin::iron());
    ASSERT_EQ(frame.flame.width(), 66);
    ASSERT_EQ(frame.flame.height(), 54);
    const QImage scene = frame.scene.nsImage(4);
    const QImage flame = frame.flame.nsImage(4);
    for (int y = 0; y < scene.height(); ++y) {
        for (int x = 0; x < scene.width(); ++x) {
            const QRgb shown = flame.pixel(x + 16 * 4, y);
            if (qAlpha(shown) == 255) {
                ASSERT_EQ(scene.pixel(x, y), shown) << x << ' ' << y;
            }
        }
    }
}

TEST(CauldronSwarmTest, HidesItemsBehindThePotAndSunkItems) {
    const PixelCanvas pot = CauldronArt::idle(0, true, 0, Skin::iron());
    int passes = 0;
    for (std::uint64_t seed = 1; seed <= 12; ++seed) {
        const SwarmItem item(seed, 0);
        for (int step = 2; step < 27; ++step) {
            const double time = step * 0.05;
            const SwarmItem::Pose pose = item.pose(time);
            const bool sinking = time >= SwarmItem::kSplash;
            if (!pose.behindPot && !sinking)
                continue;
            const QImage picture =
                CauldronArt::swarm(time, icons(1), seed, 0, Skin::iron()).flame.nsImage(3);
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x) {
                    const QColor color = picture.pixelColor(x, y);
                    if (color.alpha() < 128 || color.green() > 64)
                        continue;
                    ++passes;
                    if (sinking) {
                        ASSERT_LT(y / 3, 29) << seed << ' ' << time;
                    } else {
                        ASSERT_EQ(pot.at(x / 3 - 16, y / 3), Pixel{}) << seed << ' ' << time;
                    }
                }
            }
        }
    }
    EXPECT_GT(passes, 1000) << "too few items pass behind the pot";
}

TEST(CauldronSwarmTest, EachItemReachesThePoolAndFlaresUp) {
    for (std::uint64_t seed = 1; seed < 50; ++seed) {
        const SwarmItem item(seed, seed % 10);
        const SwarmItem::Pose splash = item.pose(SwarmItem::kSplash);
        EXPECT_NEAR(splash.x, item.poolColumn(), 0.01);
        EXPECT_NEAR(splash.y, 28, 0.01);
        EXPECT_GE(splash.x, 12);
        EXPECT_LE(splash.x, 22);
        EXPECT_EQ(item.flameHeight(SwarmItem::kSplash), 0);
        EXPECT_GT(item.flameHeight(SwarmItem::kSplash + SwarmItem::kFlare), 12);
        EXPECT_EQ(item.flameHeight(SwarmItem::kEnd), 0);
        EXPECT_EQ(item.pose(0).opacity, 0);
    }
}

TEST(CauldronSwarmTest, DrawsABallOfFireForAnItemWithoutPicture) {
    const std::vector<QImage> none(1);
    const QImage picture = CauldronArt::swarm(0.6, none, 8, 0, Skin::iron()).flame.nsImage(3);
    int light = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            light += picture.pixel(x, y) == 0xFFB9F7C4 ? 1 : 0;
    }
    EXPECT_GT(light, 20);
}

} // namespace
} // namespace vexmoor
