#include "Desk.h"

#include "art/BurnCurve.h"
#include "art/CauldronArt.h"
#include "dock/DockIconAnimator.h"
#include "dock/FlameOverlayWindow.h"
#include "dock/NativeWindow.h"
#include "dock/OwnDock.h"

#include <QFile>
#include <QMouseEvent>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;

/// A window that records clicks.
struct Target : QWidget {
    Target() : QWidget(nullptr, Qt::BypassWindowManagerHint) {}
    int clicks = 0;
    void mousePressEvent(QMouseEvent*) override { ++clicks; }
};

struct StepTimer : FrameTimer {
    std::function<void()> fire;
    void start(Interval, std::function<void()> callback) override { fire = std::move(callback); }
    void stop() override { fire = nullptr; }
};

/// The complete dock on a real display: the animator drives the tile and the flame window.
struct FlameOnDeskTest : testing::TestWithParam<Desk::Setting> {
    void SetUp() override {
        if (const auto program = XSession::missing())
            GTEST_SKIP() << *program << " is not installed";
        desk = std::make_unique<Desk>(GetParam());
        ASSERT_TRUE(
            desk->showTile(CauldronArt::idle(1, false, 0, Skin::iron()).crop(0, 20, 34, 34)));
        dock =
            std::make_unique<OwnDock>([] { return true; }, [this] { return desk->tile->frame(); });
        tile = std::make_unique<DockTile>(*dock, screens);
        animator.reset(new DockIconAnimator({
            .icon = *desk->tile,
            .makeOverlay =
                [this] {
                    auto window = std::make_unique<FlameOverlayWindow>(*desk->compositor);
                    flame = window.get();
                    return window;
                },
            .accessibility = *dock,
            .tile = *tile,
            .screens = screens,
            .makeTimer =
                [this] {
                    auto timer = std::make_unique<StepTimer>();
                    timers.push_back(timer.get());
                    return timer;
                },
            .random = [] { return 20; },
        }));
        animator->startIdle();
        // The window manager places the tile shortly after it is shown.
        ASSERT_TRUE(eventuallyInLoop([this] { return serverGeometry(*desk->tile).top() > 0; }));
    }

    void frames(int count) {
        for (int i = 0; i < count && timers.at(0)->fire; ++i) {
            const auto fire = timers.at(0)->fire;
            fire();
        }
    }
    [[nodiscard]] int cell() const { return serverGeometry(*desk->tile).width() / 34; }
    void keep(const QString& what) {
        const QRect place = serverGeometry(*desk->tile);
        const int c = cell();
        desk->keepPicture(QString("flame-%1%2-%3")
                              .arg(GetParam().scale)
                              .arg(GetParam().compositor ? "" : "-plain", what),
                          place.adjusted(-18 * c, -24 * c, 18 * c, 0));
    }
    /// True if the screen shows the canvas at `place` in the rows above the tile.
    [[nodiscard]] bool shows(const PixelCanvas& canvas, const QRect& place) const {
        return eventuallyInLoop([&, side = cell()] {
            const QImage screen = desk->screen();
            for (int y = 0; y < 20; ++y) {
                for (int x = 0; x < canvas.width(); ++x) {
                    const QPoint corner(place.x() + x * side, place.y() + y * side);
                    if (!isPixel(canvas.at(x, y),
                                 screen.pixelColor(corner + QPoint(side, side) / 2)))
                        return false;
                }
            }
            return true;
        });
    }
    [[nodiscard]] static bool isPixel(Pixel pixel, const QColor& seen) {
        const bool isMixed = pixel.a != 0 && pixel.a != 255;
        const QColor pure =
            pixel.a == 0 ? GetParam().background : QColor(pixel.r, pixel.g, pixel.b);
        return isMixed || seen == pure;
    }

    std::unique_ptr<Desk> desk;
    SessionScreens screens;
    std::unique_ptr<OwnDock> dock;
    std::unique_ptr<DockTile> tile;
    std::vector<StepTimer*> timers;
    FlameOverlayWindow* flame = nullptr;
    std::unique_ptr<DockIconAnimator> animator;
};

TEST_P(FlameOnDeskTest, IsAlignedWithTheTilesGrid) {
    animator->play({std::optional<QImage>()});
    frames(19);
    const double t = BurnCurve::moment(18);
    const std::uint64_t seed = BurnCurve::frameSeed(21, t);
    const PixelCanvas expected = CauldronArt::burn({.t = t,
                                                    .height = BurnCurve::height(t, 24, seed),
                                                    .simmer = true,
                                                    .seed = seed,
                                                    .splitAtPool = true,
                                                    .skin = Skin::iron()})
                                     .flame.crop(0, 0, 34, 27);
    const QRect below = serverGeometry(*desk->tile);
    const QRect place = serverGeometry(*flame);
    EXPECT_EQ(place, QRect(below.x(), below.y() - 20 * cell(), 34 * cell(), 27 * cell()));
    EXPECT_TRUE(shows(expected, place));
    keep("burn");
    const std::string info = Desk::output({"xwininfo", "-all", "-id", Desk::idOf(*flame)});
    EXPECT_THAT(info, testing::HasSubstr("Override redirection?: Yes"));
    frames(17);
    EXPECT_FALSE(animator->isPlaying());
    EXPECT_FALSE(flame->isVisible());
}

TEST_P(FlameOnDeskTest, SwarmsAroundTheTile) {
    QImage sheet(64, 64, QImage::Format_ARGB32_Premultiplied);
    sheet.fill(QColor(0xf4, 0xd0, 0x5c));
    animator->play(
        {std::optional<QImage>()}); // the window was hidden since it belonged to another animation
    frames(BurnCurve::kFrames);
    animator->play(DockIconAnimator::Images(6, sheet));
    for (int part = 1; part <= 5; ++part) {
        frames(12);
        ASSERT_TRUE(eventuallyInLoop([&] { return flame->isVisible(); }));
        QCoreApplication::processEvents();
        keep(QString("swarm-%1").arg(part));
    }
    const QRect below = serverGeometry(*desk->tile);
    const QRect expected(below.x() - 16 * cell(), below.y() - 20 * cell(), 66 * cell(),
                         54 * cell());
    EXPECT_EQ(serverGeometry(*flame), expected);
}

TEST_P(FlameOnDeskTest, PassesMouseInputThrough) {
    Target target;
    target.setGeometry(QGuiApplication::primaryScreen()->geometry());
    target.show();
    desk->tile->raise();
    animator->play({std::optional<QImage>()});
    frames(15);
    ASSERT_TRUE(
        eventuallyInLoop([&] { return flame && flame->isVisible() && target.isVisible(); }));
    const QPoint middle = serverGeometry(*flame).center() - QPoint(0, 2 * cell());
    Desk::mouse(
        {"mousemove", std::to_string(middle.x()), std::to_string(middle.y()), "click", "1"});
    EXPECT_TRUE(eventuallyInLoop([&] { return target.clicks == 1; }));
}

TEST_P(FlameOnDeskTest, RisesAboveWindowsThatCameLaterButNotAboveFullscreenOnes) {
    animator->play({std::optional<QImage>()});
    frames(10);
    const auto isSeen = [this] {
        const QRect place = serverGeometry(*flame);
        const QImage part =
            desk->screen().copy(QRect(place.topLeft(), QSize(place.width(), 20 * cell())));
        const Pixel acid = Skin::iron().acid;
        for (int y = 0; y < part.height(); ++y)
            for (int x = 0; x < part.width(); ++x)
                if (part.pixel(x, y) == qRgb(acid.r, acid.g, acid.b))
                    return true;
        return false;
    };
    ASSERT_TRUE(eventuallyInLoop(isSeen));
    Target cover;
    cover.setGeometry(QGuiApplication::primaryScreen()->geometry());
    cover.show();
    ASSERT_TRUE(eventuallyInLoop([&] { return !isSeen(); }));
    frames(1);
    EXPECT_TRUE(eventuallyInLoop(isSeen)) << "it is raised with each frame";
    cover.hide();

    QWidget film;
    film.showFullScreen();
    ASSERT_TRUE(eventuallyInLoop([&] { return film.isActiveWindow() && film.isFullScreen(); }));
    ASSERT_TRUE(eventuallyInLoop([&] { return native::isFullscreenAt(serverGeometry(*flame)); }));
    frames(1);
    EXPECT_FALSE(flame->isVisible());
    EXPECT_TRUE(animator->isPlaying()) << "in the tile it goes on";
    film.hide();
    ASSERT_TRUE(eventuallyInLoop([&] { return !native::isFullscreenAt(serverGeometry(*flame)); }));
    frames(1);
    EXPECT_TRUE(flame->isVisible());
}

const QColor kDusk(0x5b, 0x4a, 0x6e);

INSTANTIATE_TEST_SUITE_P(
    , FlameOnDeskTest,
    testing::Values(
        Desk::Setting{.scale = 1, .compositor = true, .background = kDusk},
        Desk::Setting{.scale = 1, .compositor = false, .background = kDusk},
        Desk::Setting{.scale = 2, .compositor = true, .background = kDusk, .size = "1600x1000"},
        // On these the screen's height is not a whole number of points.
        Desk::Setting{.scale = 1.25, .compositor = false, .background = kDusk, .size = "1280x1024"},
        Desk::Setting{.scale = 1.5, .compositor = true, .background = kDusk, .size = "1280x800"}),
    [](const auto& setting) {
        return std::string(setting.param.compositor ? "Composited" : "Plain") +
               std::to_string(std::lround(setting.param.scale * 100));
    });

} // namespace
} // namespace vexmoor
