#include "dock/DockIconAnimator.h"

#include "FakeDock.h"

#include "support/ManualTimer.h"

#include "art/BurnCurve.h"
#include "art/CauldronArt.h"
#include "thumbnails/ImagePicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace vexmoor {
namespace {

using namespace test;
using testing::DoubleNear;
using testing::ElementsAre;

struct RecordingIcon : IconSink {
    std::vector<PixelCanvas> icons;
    void setIcon(const PixelCanvas& icon) override { icons.push_back(icon); }
};

struct Flames {
    int windows = 0;
    bool visible = false;
    std::vector<std::pair<PixelCanvas, DeskRect>> shown;
};

struct RecordingFlameWindow : FlameWindow {
    explicit RecordingFlameWindow(Flames& flames) : m_flames(flames) { ++m_flames.windows; }
    void showFlame(const PixelCanvas& flame, const DeskRect& frame) override {
        m_flames.visible = true;
        m_flames.shown.emplace_back(flame, frame);
    }
    void orderOut() override { m_flames.visible = false; }
    Flames& m_flames;
};

struct DockIconAnimatorTest : testing::Test {
    DockIconAnimatorTest() {
        accessibility.setItems({item});
        CauldronArt::setCurrent(Skin::iron());
    }
    ~DockIconAnimatorTest() override { CauldronArt::setCurrent(Skin::iron()); }

    static bool step(ManualTimer& timer) {
        const auto fire = timer.fire;
        if (fire)
            fire();
        return fire != nullptr;
    }
    bool frame() { return step(*timers.at(0)); }
    bool idleFrame() { return step(*timers.at(1)); }

    /// Advances frames until nothing plays.
    int framesToTheEnd() {
        int frames = 0;
        while (animator.isPlaying() && frame())
            ++frames;
        return frames;
    }

    static DockIconAnimator::Images images(std::size_t count) {
        return DockIconAnimator::Images(count, QImage());
    }

    FakeAccessibility accessibility;
    FakeScreens screens;
    std::shared_ptr<FakeElement> item = tile("Vexmoor", {600, 698}, 102);
    DockTile dockTile{accessibility, screens};
    RecordingIcon icon;
    Flames flames;
    std::vector<ManualTimer*> timers;
    std::uint64_t random = 41;
    DockIconAnimator animator{{
        .icon = icon,
        .makeOverlay = [this] { return std::make_unique<RecordingFlameWindow>(flames); },
        .accessibility = accessibility,
        .tile = dockTile,
        .screens = screens,
        .makeTimer =
            [this] {
                auto timer = std::make_unique<ManualTimer>();
                timers.push_back(timer.get());
                return timer;
            },
        .random = [this] { return random++; },
    }};
};

TEST_F(DockIconAnimatorTest, PlaysABatchAtTheFrameRate) {
    struct Case {
        std::size_t items;
        int frames;
    };
    const Case cases[] = {{0, 0},  {1, 36}, {2, 72},   {3, 52},
                          {4, 59}, {9, 95}, {10, 102}, {15, 102}};
    for (const Case& c : cases) {
        animator.play(images(c.items));
        EXPECT_EQ(framesToTheEnd(), c.frames) << c.items;
        EXPECT_FALSE(flames.visible);
    }
    EXPECT_DOUBLE_EQ(timers.at(0)->seconds, 1 / 24.0);
}

TEST_F(DockIconAnimatorTest, BurnsTheFirstItemOfASwarmThatCannotLeaveTheTile) {
    struct Case {
        const char* why;
        std::function<void()> arrange;
    };
    const Case cases[] = {
        {"not wanted", [this] { animator.setEscapeDock(false); }},
        {"not trusted", [this] { accessibility.trusted = false; }},
        {"no tile", [this] { accessibility.setItems({}); }},
        {"at the screen's top", [this] { item->m_position = QPointF(600, 20); }},
    };
    for (const Case& c : cases) {
        animator.setEscapeDock(true);
        accessibility.trusted = true;
        accessibility.setItems({item});
        c.arrange();
        animator.play(images(7));
        EXPECT_EQ(framesToTheEnd(), 36) << c.why;
    }
    EXPECT_EQ(flames.windows, 0) << "no flame window was needed";
}

TEST_F(DockIconAnimatorTest, PlaysBatchesInOrderWithoutPause) {
    QImage red(8, 8, QImage::Format_ARGB32_Premultiplied);
    red.fill(Qt::red);
    animator.play({std::optional<QImage>()});
    animator.play(images(5));
    animator.play({std::make_shared<ImagePicture>(red), PicturePointer()});
    std::vector<int> widths;
    for (int count = 0; animator.isPlaying() && frame(); ++count)
        if (count == 35 || count == 36 || count == 36 + 65 || count == 36 + 66)
            widths.push_back(flames.shown.back().first.width());
    EXPECT_THAT(widths, ElementsAre(34, 66, 66, 34));
    EXPECT_EQ(flames.shown.size(), 36U + 66 + 36 + 36);
    EXPECT_EQ(flames.windows, 1);
    const auto hasItem = [&](std::size_t shown) {
        return !flames.shown.at(shown).first.overlays().empty();
    };
    EXPECT_FALSE(hasItem(10));
    EXPECT_TRUE(hasItem(36 + 66 + 10));
    EXPECT_FALSE(hasItem(36 + 66 + 36 + 10));
}

TEST_F(DockIconAnimatorTest, PaintsTheArtOfEachFrame) {
    random = 1000;
    animator.play(images(1));
    for (int i = 0; i <= 20; ++i)
        frame();
    const double t = 20 / 35.0;
    std::uint64_t seed = ((1001 ^ static_cast<std::uint64_t>(t * 1000)) * 0x9E3779B97F4A7C15) | 1;
    const double height = 24 + (2 * SeededRNG{seed}.uniform() - 1);
    const auto expected = CauldronArt::burn({.t = t,
                                             .height = height,
                                             .simmer = true,
                                             .seed = seed,
                                             .splitAtPool = true,
                                             .skin = Skin::iron()});
    EXPECT_EQ(icon.icons.back(), expected.scene.crop(0, 20, 34, 34));
    EXPECT_EQ(flames.shown.back().first, expected.flame.crop(0, 0, 34, 27));
}

TEST_F(DockIconAnimatorTest, KeepsTheFlameSmallInsideTheTile) {
    animator.setEscapeDock(false);
    random = 1000;
    animator.play(images(1));
    for (int i = 0; i <= 7; ++i)
        frame();
    const double t = 0.2;
    const auto expected = CauldronArt::burn({.t = t,
                                             .height = 8 * (1 - std::pow(1 - t / 0.3, 3)),
                                             .simmer = true,
                                             .seed = BurnCurve::frameSeed(1001, t),
                                             .skin = Skin::iron()});
    EXPECT_EQ(icon.icons.back(), expected.scene.crop(0, 20, 34, 34));
}

TEST_F(DockIconAnimatorTest, SeedsEachSwarmDifferently) {
    std::vector<QImage> seen;
    for (int swarm = 0; swarm < 2; ++swarm) {
        animator.play(images(3));
        for (int i = 0; i < 12; ++i)
            frame();
        seen.push_back(flames.shown.back().first.nsImage(2));
        framesToTheEnd();
    }
    EXPECT_NE(seen[0], seen[1]);
    const std::vector<QImage> icons(3);
    EXPECT_EQ(seen[0], CauldronArt::swarm(11 / 24.0, icons, 42, 0, Skin::iron()).flame.nsImage(2));
}

TEST_F(DockIconAnimatorTest, AlignsTheFlameWindowWithTheTilesGrid) {
    struct Case {
        std::size_t items;
        double side;
        int nudge;
        DeskRect expected;
    };
    const Case cases[] = {
        {1, 102, 0, {600, 102 - 21, 102, 81}},       {1, 102, 2, {600, 102 - 27, 102, 81}},
        {3, 102, 0, {600 - 48, 0, 102 + 96, 162}},   {3, 68, 1, {600 - 32, 34 - 2, 68 + 64, 108}},
        {1, 81.6, 0, {600, 102 - 16.8, 81.6, 64.8}},
    };
    for (const Case& c : cases) {
        item->m_size = QSizeF(c.side, c.side);
        animator.setNudgeRows(c.nudge);
        animator.play(images(c.items));
        frame();
        const DeskRect actual = flames.shown.back().second;
        framesToTheEnd();
        EXPECT_THAT(actual.x, DoubleNear(c.expected.x, 1e-9));
        EXPECT_THAT(actual.y, DoubleNear(c.expected.y, 1e-9));
        EXPECT_THAT(actual.width, DoubleNear(c.expected.width, 1e-9));
        EXPECT_THAT(actual.height, DoubleNear(c.expected.height, 1e-9));
    }
}

TEST_F(DockIconAnimatorTest, HidesTheFlamesWhileTheTileIsMissing) {
    animator.play(images(1));
    frame();
    EXPECT_TRUE(flames.visible);
    item->m_position = QPointF(600, 5000);
    frame();
    EXPECT_FALSE(flames.visible) << "outside all screens";
    item->m_position = QPointF(600, 100);
    frame();
    EXPECT_TRUE(flames.visible);
    accessibility.setItems({});
    frame();
    EXPECT_FALSE(flames.visible) << "the tile is gone";
    EXPECT_EQ(framesToTheEnd(), 32) << "the burn continues inside the icon";
}

TEST_F(DockIconAnimatorTest, DecidesForEachDropWhetherFlamesMayLeave) {
    animator.play(images(2));
    frame();
    EXPECT_TRUE(flames.visible);
    animator.setEscapeDock(false);
    for (int i = 1; i < 36; ++i)
        frame();
    EXPECT_FALSE(flames.visible) << "the second burn stays inside";
    EXPECT_EQ(flames.shown.size(), 36U) << "the first one was not cut short";
}

TEST_F(DockIconAnimatorTest, BurnsInThePotWhereNoScreenIsAboveTheTile) {
    const auto escapes = [this](double top) {
        item->m_position = QPointF(600, top);
        animator.play(images(1));
        frame();
        const bool seen = flames.visible;
        framesToTheEnd();
        return seen;
    };
    EXPECT_TRUE(escapes(100));
    EXPECT_FALSE(escapes(0)) << "most of the flame would be above the screen";
    screens.rects.push_back({0, 800, 1280, 800});
    EXPECT_TRUE(escapes(0)) << "another screen is there";
}

TEST_F(DockIconAnimatorTest, RestartsTheIdleAnimationAfterABurn) {
    const auto idle = [](int tick) {
        return CauldronArt::idle(tick, false, 0, Skin::iron()).crop(0, 20, 34, 34);
    };
    animator.startIdle();
    EXPECT_EQ(icon.icons.back(), idle(1));
    EXPECT_DOUBLE_EQ(timers.at(1)->seconds, 0.125);
    for (int tick = 2; tick <= 22; ++tick)
        idleFrame();
    EXPECT_EQ(icon.icons.back(), idle(22));

    animator.play(images(1));
    const std::size_t before = icon.icons.size();
    EXPECT_TRUE(idleFrame()) << "the idle timer keeps running";
    EXPECT_EQ(icon.icons.size(), before) << "but draws nothing";
    framesToTheEnd();
    idleFrame();
    EXPECT_EQ(icon.icons.back(), idle(1));
}

TEST_F(DockIconAnimatorTest, SkipsUnchangedIcons) {
    animator.startIdle();
    for (int tick = 2; tick <= 400; ++tick)
        idleFrame();
    EXPECT_LT(icon.icons.size(), 400U);
    for (std::size_t i = 1; i < icon.icons.size(); ++i)
        ASSERT_NE(icon.icons[i - 1], icon.icons[i]);
}

TEST_F(DockIconAnimatorTest, StartsABurnAtTheFloatingPotsHeight) {
    CauldronArt::setCurrent(Skin::voidSkin());
    ASSERT_GE(Skin::voidSkin().body.hoverRows, 1);
    animator.startIdle();
    for (int tick = 2; tick <= 10; ++tick)
        idleFrame();
    animator.play(images(2));
    const auto expected = [&](int frame, std::uint64_t seed, double lift) {
        const double t = frame / 35.0;
        const std::uint64_t mixed = BurnCurve::frameSeed(seed, t);
        return CauldronArt::burn({.t = t,
                                  .height = BurnCurve::height(t, 24, mixed),
                                  .simmer = BurnCurve::simmers(t),
                                  .seed = mixed,
                                  .splitAtPool = true,
                                  .lift = lift,
                                  .skin = Skin::voidSkin()})
            .scene.crop(0, 20, 34, 34);
    };
    for (int i = 0; i < 4; ++i)
        frame();
    EXPECT_EQ(icon.icons.back(), expected(3, 42, 1.5));
    for (int i = 4; i < 36 + 4; ++i)
        frame();
    EXPECT_EQ(icon.icons.back(), expected(3, 43, 0)) << "the next burn starts at its position";
}

TEST_F(DockIconAnimatorTest, ShowsAStillPotWithReducedMotion) {
    animator.startIdle();
    animator.play(images(2));
    frame();
    animator.setStill(true);
    animator.play(images(1));
    EXPECT_FALSE(animator.isPlaying());
    EXPECT_FALSE(flames.visible);
    EXPECT_FALSE(frame());
    EXPECT_FALSE(idleFrame());
    animator.setStill(false);
    EXPECT_TRUE(idleFrame());
}

TEST_F(DockIconAnimatorTest, PausesWhileSuspended) {
    animator.startIdle();
    animator.play(images(1));
    for (int i = 0; i < 10; ++i)
        frame();
    animator.setSuspended(true);
    EXPECT_FALSE(flames.visible);
    EXPECT_FALSE(frame());
    EXPECT_FALSE(idleFrame());
    for (int batch = 0; batch < 100; ++batch)
        animator.play(images(1));
    EXPECT_FALSE(frame());
    animator.setSuspended(false); // only the newest missed batch is kept
    EXPECT_EQ(framesToTheEnd(), 26 + 36);
    EXPECT_TRUE(idleFrame());

    animator.setSuspended(true);
    animator.play(images(1));
    EXPECT_FALSE(frame()) << "a batch added while suspended waits";
    animator.startIdle();
    EXPECT_FALSE(idleFrame());
    animator.setSuspended(false);
    EXPECT_EQ(framesToTheEnd(), 36);
}

TEST_F(DockIconAnimatorTest, CanPlayAgainFromItsLastFrame) {
    for (int batch = 0; batch < 200; ++batch)
        animator.play(images(1));
    EXPECT_EQ(framesToTheEnd(), 200 * 36);
    EXPECT_FALSE(flames.visible);
    EXPECT_FALSE(frame()) << "no timer is left running";
}

} // namespace
} // namespace vexmoor
