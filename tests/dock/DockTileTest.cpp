#include "dock/DockTile.h"

#include "FakeDock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vexmoor {

void PrintTo(const DeskRect& rect, std::ostream* out) {
    *out << rect.x << ", " << rect.y << "  " << rect.width << " x " << rect.height;
}

namespace {

using namespace test;

struct DockTileTest : testing::Test {
    FakeAccessibility accessibility;
    FakeScreens screens;
    DockTile dockTile{accessibility, screens};
};

TEST_F(DockTileTest, FlipsYWithThePrimaryScreensHeight) {
    struct Case {
        std::vector<DeskRect> screens;
        QPointF position;
        DeskRect expected;
    };
    const Case cases[] = {
        {{{0, 0, 1280, 800}}, {600, 698}, {600, 0, 102, 102}},
        {{{0, 0, 1280, 800}}, {0, 0}, {0, 698, 102, 102}},
        // A taller screen to the right, listed before the primary one.
        {{{1280, -280, 1920, 1080}, {0, 0, 1280, 800}}, {2000, 978}, {2000, -280, 102, 102}},
        // A screen above: a negative y from the top is a large y from the bottom.
        {{{0, 0, 1280, 800}, {0, 800, 1280, 1024}}, {5, -500}, {5, 1198, 102, 102}},
    };
    for (const Case& c : cases) {
        screens.rects = c.screens;
        accessibility.setItems({tile("Vexmoor", c.position, 102)});
        EXPECT_EQ(dockTile.frame(), c.expected);
    }
}

TEST_F(DockTileTest, FindsTheFirstItemWithTheExactName) {
    const auto list = [](std::vector<AccessibilityElement::Pointer> items) {
        return element(QStringLiteral("AXList"), {}, std::move(items));
    };
    accessibility.root = element(
        {}, {},
        {element(QStringLiteral("AXMenu"), {}, {tile("Vexmoor", {1, 1}, 1)}),
         list({tile("vexmoor", {10, 0}, 10), tile("VEXMOOR", {20, 0}, 10), element("AXDockItem"),
               tile("Vexmoor", {30, 0}, 10), tile("Vexmoor", {40, 0}, 10)}),
         list({tile("Vexmoor", {50, 0}, 10)})});
    EXPECT_EQ(dockTile.frame(), (DeskRect{30, 790, 10, 10}));
    EXPECT_EQ(DockTile(accessibility, screens, "VEXMOOR").frame(), (DeskRect{20, 790, 10, 10}));
}

TEST_F(DockTileTest, ReturnsNulloptIfAnyPartIsMissing) {
    EXPECT_EQ(dockTile.frame(), std::nullopt) << "no dock runs";

    accessibility.root = element({});
    EXPECT_EQ(dockTile.frame(), std::nullopt) << "no children";

    accessibility.root = element({}, {}, {element({}), element("AXlist")});
    EXPECT_EQ(dockTile.frame(), std::nullopt) << "no list";

    accessibility.setItems({tile("vexmoor", {0, 0}, 10)});
    EXPECT_EQ(dockTile.frame(), std::nullopt) << "no such title";

    const auto item = tile("Vexmoor", {0, 0}, 10);
    accessibility.setItems({item});
    EXPECT_TRUE(dockTile.frame());
    item->m_position.reset();
    EXPECT_EQ(dockTile.frame(), std::nullopt) << "no position";
    item->m_position = QPointF(0, 0);
    item->m_size.reset();
    EXPECT_EQ(dockTile.frame(), std::nullopt) << "no size";
    item->m_size = QSizeF(10, 10);
    screens.rects = {{5, 5, 1280, 800}};
    EXPECT_EQ(dockTile.frame(), std::nullopt) << "no primary screen";
}

TEST_F(DockTileTest, ReturnsNulloptWithoutTrustAndDoesNotQueryTheDock) {
    accessibility.setItems({tile("Vexmoor", {0, 0}, 10)});
    accessibility.trusted = false;
    EXPECT_EQ(dockTile.frame(), std::nullopt);
    EXPECT_EQ(accessibility.looks, 0);
}

TEST_F(DockTileTest, FollowsAMovingTile) {
    const auto item = tile("Vexmoor", {0, 0}, 10);
    accessibility.setItems({item});
    EXPECT_EQ(dockTile.frame()->x, 0);
    item->m_position = QPointF(77, 0);
    EXPECT_EQ(dockTile.frame()->x, 77);
}

TEST(DockTileSettingsTest, OpensTheDesktopsOwnPanelBeforeOthers) {
    struct Case {
        QString desktop;
        QStringList installed;
        std::optional<QString> started;
    };
    const Case cases[] = {
        {"ubuntu:GNOME", {"mate-at-properties", "gnome-control-center"}, "gnome-control-center"},
        {"XFCE",
         {"gnome-control-center", "xfce4-accessibility-settings"},
         "xfce4-accessibility-settings"},
        {"KDE", {"systemsettings5"}, "systemsettings5"},
        {"sway", {"mate-at-properties", "cinnamon-settings"}, "mate-at-properties"},
        {"", {}, {}},
    };
    for (const Case& c : cases) {
        std::optional<QString> started;
        const bool opened =
            DockTile::openSettings(c.desktop, [&](const QString& program, const QStringList&) {
                if (!c.installed.contains(program))
                    return false;
                started = program;
                return true;
            });
        EXPECT_EQ(opened, c.started.has_value()) << c.desktop.toStdString();
        EXPECT_EQ(started, c.started) << c.desktop.toStdString();
    }
}

} // namespace
} // namespace vexmoor
