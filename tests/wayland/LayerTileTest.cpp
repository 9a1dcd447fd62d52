#include "Sway.h"
#include "VirtualPointer.h"

#include "support/InMemoryDefaults.h"
#include "support/MainLoop.h"

#include "art/CauldronArt.h"
#include "dock/DockTile.h"
#include "dock/OwnDock.h"
#include "dock/wayland/LayerTile.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;
using testing::ElementsAre;

[[maybe_unused]] const auto* const kApplication =
    testing::AddGlobalTestEnvironment(new ApplicationEnvironment<QApplication>);

PixelCanvas icon() {
    return CauldronArt::idle(20, false, 0, Skin::iron()).crop(0, 20, 34, 34);
}

/// Returns the number of opaque canvas pixels that are not shown as a square of one colour.
int blurredPixels(const QImage& screen, QPoint corner, const PixelCanvas& canvas, int cell) {
    int blurred = 0;
    for (int y = 0; y < canvas.height(); ++y) {
        for (int x = 0; x < canvas.width(); ++x) {
            const Pixel pixel = canvas.at(x, y);
            if (pixel.a != 255)
                continue;
            const QRect square(corner + QPoint(x, y) * cell, QSize(cell, cell));
            QImage expected(square.size(), screen.format());
            expected.fill(qRgb(pixel.r, pixel.g, pixel.b));
            blurred += screen.copy(square) == expected ? 0 : 1;
        }
    }
    return blurred;
}

/// Waits at a user's pace and processes the tile's events in the meantime.
void pause(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

struct LayerTileTest : testing::Test {
    void SetUp() override {
        if (const auto program = Sway::missing())
            GTEST_SKIP() << *program << " is not installed";
    }

    void open(const std::vector<std::string>& outputs = {"resolution 1280x800"},
              QSize logical = {1280, 800}) {
        sway = std::make_unique<Sway>(outputs);
        pointer = std::make_unique<VirtualPointer>(sway->display(), logical, pause);
        showTile();
    }
    void showTile() {
        tile.reset();
        qputenv("WAYLAND_DISPLAY", QByteArray::fromStdString(sway->display()));
        auto connection = wayland::WaylandConnection::open();
        ASSERT_TRUE(connection && connection->canShowTile());
        tile = std::make_unique<wayland::LayerTile>(defaults, std::move(connection));
        QObject::connect(tile.get(), &Tile::clicked, [this] { ++clicks; });
        QObject::connect(tile.get(), &Tile::dropped,
                         [this](const std::vector<Path>& items) { drops.push_back(items); });
        tile->setIcon(icon());
        tile->show();
        ASSERT_TRUE(eventuallyInLoop([this] { return tile->isVisible(); }));
    }
    [[nodiscard]] QPoint middle() const { return tile->frame().value().center().toPoint(); }
    /// True if the output shows the pot with every canvas pixel as a square.
    [[nodiscard]] bool isDrawnAt(QPoint corner, int cell) const {
        return eventuallyInLoop(
            [&] { return blurredPixels(sway->picture(), corner, icon(), cell) == 0; });
    }
    /// Like isDrawnAt(), at scale 1 and with a part hidden by the cursor.
    [[nodiscard]] bool isUnderPointerAt(QPoint corner,
                                        const std::string& output = "HEADLESS-1") const {
        constexpr int kArrow = 90;
        return eventuallyInLoop(
            [&] { return blurredPixels(sway->picture(output), corner, icon(), 3) < kArrow; });
    }
    [[nodiscard]] int acid(const QRect& part) const {
        const Pixel pixel = Skin::iron().acid;
        const QImage picture = sway->picture();
        int count = 0;
        for (int y = part.top(); y <= part.bottom(); ++y)
            for (int x = part.left(); x <= part.right(); ++x)
                count +=
                    picture.valid(x, y) && picture.pixel(x, y) == qRgb(pixel.r, pixel.g, pixel.b)
                        ? 1
                        : 0;
        return count;
    }

    InMemoryDefaults defaults;
    std::unique_ptr<Sway> sway;
    std::unique_ptr<VirtualPointer> pointer;
    std::unique_ptr<Tile> tile;
    std::vector<std::vector<Path>> drops;
    int clicks = 0;
};

struct ScaleCase {
    double scale;
    QSize output; ///< in physical pixels

    friend void PrintTo(const ScaleCase& one, std::ostream* out) { *out << one.scale; }
};

struct ScaledLayerTileTest : LayerTileTest, testing::WithParamInterface<ScaleCase> {};

TEST_P(ScaledLayerTileTest, ShowsEveryCanvasPixelAsASquareAtEachEdge) {
    const auto [scale, size] = GetParam();
    const std::string number = QByteArray::number(scale).toStdString();
    open({"resolution " + std::to_string(size.width()) + "x" + std::to_string(size.height()) +
          " scale " + number});
    const int cell = static_cast<int>(std::lround(3 * scale));
    const int side = 34 * cell;
    for (const char* place : {"bottom 0.96 ", "right 0.3 ", "top 0.5 ", "left 0.7 "}) {
        defaults.assign(Tile::kPlaceKey, std::string(place));
        showTile();
        const QRectF frame = tile->frame().value();
        const QPoint corner = (frame.topLeft() * scale).toPoint();
        EXPECT_TRUE(isDrawnAt(corner, cell)) << place;
        EXPECT_TRUE(QRect({}, size).contains(QRect(corner, QSize(side, side)))) << place;
        sway->keepPicture("tile-" + number + "-" + std::string(place).substr(0, 4));
        EXPECT_EQ(std::string(place).starts_with("bottom"), corner.y() == size.height() - side);
        EXPECT_EQ(std::string(place).starts_with("right"), corner.x() == size.width() - side);
    }
}

INSTANTIATE_TEST_SUITE_P(, ScaledLayerTileTest,
                         testing::Values(ScaleCase{1, {1280, 800}}, ScaleCase{1.25, {1600, 1000}},
                                         ScaleCase{1.5, {1920, 1080}}, ScaleCase{2, {2560, 1600}}),
                         [](const auto& one) {
                             return std::to_string(std::lround(one.param.scale * 100));
                         });

TEST_F(LayerTileTest, IsFoundThroughItsOwnDockAndShowsFlamesAbove) {
    open();
    const OwnDock dock([] { return true; }, [&] { return tile->frame(); });
    const auto frame = DockTile(dock, tile->screens()).frame();
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->y, 0) << "the tile is at the bottom edge";
    EXPECT_EQ(frame->width, 102);
    EXPECT_NEAR(frame->x, (1280 - 102) * 0.96, 1);

    PixelCanvas flame(34, 27);
    const Pixel colour = Skin::iron().acid;
    for (int y = 0; y < 27; ++y)
        for (int x = 0; x < 34; ++x)
            flame.set(x, y, colour);
    const auto window = tile->makeFlames();
    const DeskRect above{frame->x, frame->maxY() - 7 * 3, 102, 27 * 3};
    window->showFlame(flame, above);
    const QRect expected(static_cast<int>(frame->x), 800 - 102 + 21 - 81, 102, 81);
    EXPECT_TRUE(eventuallyInLoop([&] { return acid(expected) == 102 * 81; }));
    EXPECT_EQ(acid(expected.adjusted(-5, -5, 5, 0)), 102 * 81) << "no flames elsewhere";
    pointer->click(middle());
    EXPECT_TRUE(eventuallyInLoop([&] { return clicks == 1; }));
    window->orderOut();
    EXPECT_TRUE(eventuallyInLoop([&] { return acid(expected) < 102 * 21; }));
}

TEST_F(LayerTileTest, AcceptsClicksAndOpensItsMenuAtThePointer) {
    open();
    QPoint asked;
    QMenu menu;
    menu.addAction("Quit");
    QObject::connect(tile.get(), &Tile::menuRequested, [&](QPoint place) {
        asked = place;
        menu.popup(place);
    });
    pointer->click(middle());
    EXPECT_TRUE(eventuallyInLoop([&] { return clicks == 1; }));
    pointer->click(middle() + QPoint(20, 10), VirtualPointer::Button::right);
    ASSERT_TRUE(eventuallyInLoop([&] { return menu.isVisible(); }));
    EXPECT_EQ(clicks, 1);
    EXPECT_LE(menu.geometry().bottom(), 800 - 102) << "the tile would cover the menu";
    pointer->click({300, 300});
    EXPECT_TRUE(eventuallyInLoop([&] { return !menu.isVisible(); }))
        << "a press outside the menu closes it";
    pointer->click(middle());
    EXPECT_TRUE(eventuallyInLoop([&] { return clicks == 2; })) << "the curtain is gone";
}

TEST_F(LayerTileTest, CanBeDraggedToAnotherEdgeAndOutputAndRestoresItsPlace) {
    open({"resolution 1280x800 position 0 0", "resolution 1000x800 position 1280 0"}, {2280, 800});
    const QPoint before = middle();
    pointer->dragTo(before, {60, 300});
    EXPECT_TRUE(isUnderPointerAt({0, 300 - 51})) << "visible during the drag";
    pointer->release();
    EXPECT_TRUE(eventuallyInLoop([&] { return tile->frame()->center().toPoint() != before; }));
    EXPECT_EQ(tile->frame()->topLeft(), QPointF(0, 249));
    EXPECT_EQ(clicks, 0) << "a drag is not a click";

    pointer->dragTo(middle(), {1800, 790});
    pointer->release();
    EXPECT_TRUE(
        eventuallyInLoop([&] { return tile->frame() == QRectF(1800 - 51, 800 - 102, 102, 102); }));
    EXPECT_TRUE(isUnderPointerAt({1800 - 1280 - 51, 800 - 102}, "HEADLESS-2"));
    showTile();
    EXPECT_TRUE(isUnderPointerAt({1800 - 1280 - 51, 800 - 102}, "HEADLESS-2"));
}

TEST_F(LayerTileTest, ReportsALostConnection) {
    open();
    QString reason;
    QObject::connect(tile.get(), &Tile::lost, [&](const QString& text) { reason = text; });
    bool shown = true;
    QObject::connect(tile.get(), &Tile::shownChanged, [&](bool is) { shown = is; });
    sway->kill();
    EXPECT_TRUE(eventuallyInLoop([&] { return !reason.isEmpty(); }));
    EXPECT_FALSE(shown);
}

} // namespace
} // namespace vexmoor
