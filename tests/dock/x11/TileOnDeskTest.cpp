#include "Desk.h"

#include "art/CauldronArt.h"

#include <QAccessible>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPushButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;
using testing::AllOf;
using testing::HasSubstr;

PixelCanvas icon() {
    return CauldronArt::idle(20, false, 0, Skin::iron()).crop(0, 20, 34, 34);
}

/// Counts opaque canvas pixels that are not shown as a square of their colour.
int blurredPixels(const QImage& screen, const QRect& tile, const PixelCanvas& canvas) {
    const int cell = tile.width() / canvas.width();
    int blurred = 0;
    for (int y = 0; y < canvas.height(); ++y) {
        for (int x = 0; x < canvas.width(); ++x) {
            const Pixel pixel = canvas.at(x, y);
            if (pixel.a != 255)
                continue;
            const QRect square(tile.x() + x * cell, tile.y() + y * cell, cell, cell);
            QImage expected(square.size(), screen.format());
            expected.fill(qRgb(pixel.r, pixel.g, pixel.b));
            blurred += screen.copy(square) == expected ? 0 : 1;
        }
    }
    return blurred;
}

struct TileOnDeskTest : testing::Test {
    void SetUp() override {
        if (const auto program = XSession::missing())
            GTEST_SKIP() << *program << " is not installed";
    }

    /// Opens the desktop and shows the tile.
    void open(const Desk::Setting& setting) {
        desk = std::make_unique<Desk>(setting);
        ASSERT_TRUE(desk->showTile(icon()));
        // Between its first two frames, a compositor may show neither correctly.
        ASSERT_TRUE(eventuallyInLoop([&] {
            return blurredPixels(desk->screen(), serverGeometry(*desk->tile), icon()) == 0 &&
                   desk->colourAroundPot() == setting.background;
        }));
    }
    [[nodiscard]] bool drawn(const PixelCanvas& canvas) const {
        return eventuallyInLoop([&] {
            return blurredPixels(desk->screen(), serverGeometry(*desk->tile), canvas) == 0;
        });
    }
    static std::vector<std::string> at(QPoint point) {
        return {"mousemove", std::to_string(point.x()), std::to_string(point.y())};
    }

    std::unique_ptr<Desk> desk;
};

TEST_F(TileOnDeskTest, IsADockWindow) {
    open({});
    for (int showing = 0; showing < 2; ++showing) {
        std::string properties;
        EXPECT_TRUE(eventuallyInLoop([&] {
            properties = Desk::output({"xprop", "-id", Desk::idOf(*desk->tile), "WM_STATE",
                                       "_NET_WM_WINDOW_TYPE", "_NET_WM_STATE", "_NET_WM_DESKTOP",
                                       "WM_HINTS"});
            return testing::Value(
                properties,
                AllOf(HasSubstr("window state: Normal"), HasSubstr("_NET_WM_WINDOW_TYPE_DOCK"),
                      HasSubstr("_NET_WM_STATE_ABOVE"), HasSubstr("_NET_WM_STATE_SKIP_TASKBAR"),
                      HasSubstr("_NET_WM_STATE_SKIP_PAGER"), HasSubstr("4294967295"),
                      HasSubstr("Client accepts input or input focus: False")));
        })) << "showing "
            << showing << ": " << properties;
        desk->tile->hide();
        EXPECT_EQ(desk->tile->frame(), std::nullopt);
        desk->tile->show();
    }
}

struct ScaledTileTest : TileOnDeskTest, testing::WithParamInterface<double> {};

TEST_P(ScaledTileTest, ShowsEveryCanvasPixelAsASquareOfWholePixels) {
    open({.scale = GetParam(), .compositor = true, .size = "1600x1000"});
    const QRect place = serverGeometry(*desk->tile);
    EXPECT_EQ(place.width() % 34, 0);
    EXPECT_EQ(place.height(), place.width());
    EXPECT_EQ(place.width() / 34, std::lround(3 * GetParam()));
    EXPECT_EQ(place.bottom(), 999) << "at the bottom of the screen";
    const QRectF frame = desk->tile->frame().value();
    EXPECT_NEAR(frame.x() * GetParam(), place.x(), 1e-6);
    EXPECT_NEAR(frame.width() * GetParam(), place.width(), 1e-6);
    const PixelCanvas other = CauldronArt::idle(33, false, 0, Skin::lava()).crop(0, 20, 34, 34);
    desk->tile->setIcon(other);
    EXPECT_TRUE(drawn(other));
    desk->keepPicture(QString("tile-%1x").arg(GetParam()), place.adjusted(-60, -60, 60, 0));
}

INSTANTIATE_TEST_SUITE_P(AtEachScale, ScaledTileTest, testing::Values(1, 1.25, 1.5, 2),
                         [](const auto& scale) {
                             return std::to_string(std::lround(scale.param * 100));
                         });

TEST_F(TileOnDeskTest, ShowsTheDesktopAroundThePotWithAndWithoutCompositor) {
    const QColor sky(0x80, 0xa0, 0xc0);
    open({.background = sky});
    const auto cornerIsSky = [&] {
        return eventuallyInLoop([&] { return desk->colourAroundPot() == sky; });
    };
    EXPECT_TRUE(cornerIsSky());
    desk->startCompositor();
    EXPECT_TRUE(cornerIsSky());
    EXPECT_TRUE(drawn(icon()));
    desk->endCompositor();
    EXPECT_TRUE(cornerIsSky());
    EXPECT_TRUE(drawn(icon()));
}

TEST_F(TileOnDeskTest, IsPressedByClickOrScreenReaderWithoutTakingTheFocus) {
    open({});
    QPushButton elsewhere("Elsewhere");
    elsewhere.show();
    ASSERT_TRUE(eventuallyInLoop([&] { return elsewhere.isActiveWindow(); }));
    int clicks = 0;
    QPoint menu;
    QObject::connect(desk->tile.get(), &TileWindow::clicked, [&] { ++clicks; });
    QObject::connect(desk->tile.get(), &TileWindow::menuRequested,
                     [&](QPoint position) { menu = position; });
    const QPoint middle = serverGeometry(*desk->tile).center();
    Desk::mouse(at(middle));
    Desk::mouse({"click", "1"});
    EXPECT_TRUE(eventuallyInLoop([&] { return clicks == 1; }));
    Desk::mouse({"click", "3"});
    EXPECT_TRUE(eventuallyInLoop([&] { return menu == middle; }));
    EXPECT_EQ(clicks, 1);

    QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(desk->tile.get());
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->role(), QAccessible::Button);
    EXPECT_EQ(reader->text(QAccessible::Name), "Vexmoor");
    ASSERT_NE(reader->actionInterface(), nullptr);
    reader->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(eventuallyInLoop([&] { return clicks == 2; }));
    menu = {};
    reader->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_EQ(menu, middle);
    EXPECT_EQ(reader->text(QAccessible::Description), "");
    desk->tile->setBadged(true);
    EXPECT_EQ(reader->text(QAccessible::Description), "Dissolving forever");
    EXPECT_TRUE(elsewhere.isActiveWindow());
}

TEST_F(TileOnDeskTest, FollowsTheEdgesWhenDraggedAndRestoresItsPosition) {
    open({});
    int clicks = 0;
    QObject::connect(desk->tile.get(), &TileWindow::clicked, [&] { ++clicks; });
    Desk::mouse(at(serverGeometry(*desk->tile).center()));
    Desk::mouse({"mousedown", "1"});
    Desk::mouse(at({900, 500}));
    Desk::mouse(at({60, 300}));
    EXPECT_TRUE(eventuallyInLoop([&] { return serverGeometry(*desk->tile).topLeft().x() == 0; }));
    Desk::mouse({"mouseup", "1"});
    EXPECT_TRUE(eventuallyInLoop([&] { return desk->defaults.string("tile.place").has_value(); }));
    EXPECT_EQ(clicks, 0) << "a drag is not a click";
    const QRect place = serverGeometry(*desk->tile);
    EXPECT_NEAR(place.center().y(), 300, 2);
    EXPECT_EQ(desk->tile->frame(), QRectF(place));

    TileWindow again(desk->defaults, *desk->compositor);
    again.setIcon(icon());
    again.show();
    EXPECT_TRUE(eventuallyInLoop([&] { return serverGeometry(again) == place; }));
}

TEST_F(TileOnDeskTest, ShowsItsBadgeAndTheDropRing) {
    struct Case {
        const char* name;
        QColor background;
        bool compositor;
    };
    for (const Case& c : {Case{"light", QColor(0xe8, 0xe6, 0xe1), true},
                          Case{"dark", QColor(0x16, 0x18, 0x1d), true},
                          Case{"dark-plain", QColor(0x16, 0x18, 0x1d), false}}) {
        desk.reset();
        open({.compositor = c.compositor, .background = c.background});
        const QRect place = serverGeometry(*desk->tile).adjusted(-30, -30, 30, 0);
        desk->keepPicture(QString("tile-%1").arg(c.name), place);
        QImage before = desk->screen().copy(place);
        const auto changes = [&] {
            return eventuallyInLoop([&] { return desk->screen().copy(place) != before; });
        };
        desk->tile->setBadged(true);
        EXPECT_TRUE(changes());
        desk->keepPicture(QString("tile-%1-badge").arg(c.name), place);
        before = desk->screen().copy(place);
        QMimeData uris;
        uris.setData("text/uri-list", "file:///etc/hosts\r\n");
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &uris, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(desk->tile.get(), &enter);
        EXPECT_TRUE(changes());
        desk->keepPicture(QString("tile-%1-hovered").arg(c.name), place);
    }
}

} // namespace
} // namespace vexmoor
