#include "dock/WindowTile.h"

#include "support/InMemoryDefaults.h"

#include "art/CauldronArt.h"
#include "dock/DockTile.h"
#include "dock/OwnDock.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QScreen>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Tests that run without a window system, on Qt's offscreen platform.
struct TileWindowTest : testing::Test {
    int count = 1;
    char name[5] = "tile";
    char* arguments[2] = {name, nullptr};
    QApplication application{count, arguments};
    InMemoryDefaults defaults;
    Compositor compositor;
    TileWindow tile{defaults, compositor};
    WindowTile target{defaults, {.readsDragsEarly = true}};
    std::vector<std::vector<Path>> drops;
    std::vector<bool> refusals; ///< whether local items were accepted too
    int withheld = 0;

    TileWindowTest() {
        QObject::connect(&target, &Tile::dropped, &tile,
                         [this](const std::vector<Path>& items) { drops.push_back(items); });
        QObject::connect(&target, &Tile::refused, &tile,
                         [this](bool tookOthers) { refusals.push_back(tookOthers); });
        QObject::connect(&target, &Tile::withheld, &tile, [this] { ++withheld; });
    }

    Qt::DropAction drop(const char* type, const QByteArray& bytes) {
        return drop(type, bytes, bytes);
    }
    /// Simulates a compositor that delivers `bytes` while hovering and `atDrop` at the drop.
    Qt::DropAction drop(const char* type, const QByteArray& bytes, const QByteArray& atDrop) {
        QMimeData data;
        data.setData(type, bytes);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QCoreApplication::sendEvent(&target.window(), &enter);
        data.setData(type, atDrop);
        QDropEvent event({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&target.window(), &event);
        return event.dropAction();
    }
};

TEST_F(TileWindowTest, AcceptsLocalItemsAndReportsOthers) {
    EXPECT_EQ(drop("text/uri-list", "file:///tmp/a%20b\r\nfile:///tmp/%FE\r\n"), Qt::CopyAction)
        << "the sender must not delete the files";
    ASSERT_THAT(drops, SizeIs(1));
    EXPECT_THAT(drops[0], ElementsAre("/tmp/a b", "/tmp/\xFE"));
    EXPECT_THAT(refusals, IsEmpty());

    drop("text/uri-list", "sftp://host/x\r\nfile:///tmp/c\r\n");
    ASSERT_THAT(drops, SizeIs(2));
    EXPECT_THAT(drops[1], ElementsAre("/tmp/c"));
    EXPECT_THAT(refusals, ElementsAre(true));

    drop("text/uri-list", "https://example.org/\r\n");
    EXPECT_THAT(drops, SizeIs(2));
    EXPECT_THAT(refusals, ElementsAre(true, false));
}

TEST_F(TileWindowTest, KeepsDataReadBeforeTheDropAndReportsMissingData) {
    drop("text/uri-list", "file:///tmp/a\r\n", "");
    EXPECT_THAT(drops, ElementsAre(ElementsAre("/tmp/a")));
    drop("text/uri-list", "", "");
    EXPECT_EQ(withheld, 1) << "without data of the previous drag";
    EXPECT_THAT(drops, SizeIs(1));
    EXPECT_THAT(refusals, IsEmpty()) << "an unknown list is not remote";
}

TEST_F(TileWindowTest, IsFoundThroughItsOwnDockWhileVisible) {
    const SessionScreens screens;
    bool trusted = true;
    const OwnDock dock([&] { return trusted; }, [&] { return tile.frame(); });
    const DockTile dockTile(dock, screens);
    EXPECT_EQ(dockTile.frame(), std::nullopt);
    tile.show();
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const auto frame = dockTile.frame();
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->y, 0) << "it is at the bottom edge";
    EXPECT_EQ(frame->width, 102);
    EXPECT_NEAR(frame->x, (screen.width() - 102) * 0.96, 1);
    trusted = false;
    EXPECT_EQ(dockTile.frame(), std::nullopt);
}

TEST_F(TileWindowTest, RestoresItsPositionAndIgnoresInvalidOnes) {
    const auto topLeftFor = [&](const char* stored) {
        InMemoryDefaults other({{"tile.place", std::string(stored)}});
        TileWindow again(other, compositor);
        again.show();
        return again.frame().value().topLeft();
    };
    EXPECT_EQ(topLeftFor("left 0 gone"), QPointF(0, 0));
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_EQ(topLeftFor("right 1 gone"), QPointF(screen.width() - 102, screen.height() - 102));
    tile.show();
    EXPECT_EQ(topLeftFor("somewhere"), tile.frame().value().topLeft());
}

} // namespace
} // namespace vexmoor
