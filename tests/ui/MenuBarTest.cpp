#include "WindowFixture.h"

#include "ui/MenuBar.h"
#include "ui/MenuStats.h"
#include "ui/PopupMenu.h"

#include "dock/Compositor.h"
#include "intake/UndoStack.h"

#include <QAccessible>
#include <QLabel>
#include <QTest>

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using namespace test;
using testing::ElementsAre;

struct MenuBarTest : WindowFixture {
    [[nodiscard]] static PopupMenu* popup() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return qobject_cast<PopupMenu*>(QApplication::activePopupWidget());
    }
    static void type(std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys)
            QTest::keyClick(QApplication::activePopupWidget(), key);
    }
    [[nodiscard]] static std::vector<std::string> textsOf(const QMenu& menu) {
        std::vector<std::string> texts;
        for (const QAction* const action : menu.actions())
            texts.push_back(action->isSeparator() ? "-" : action->text().toStdString());
        return texts;
    }

    UndoStack undoStack;
    Compositor compositor;
    MenuBar menuBar{{ledger, settings, progression, undoStack, clock.clock(), [] { return false; },
                     [] { return true; }, [] { return false; }},
                    compositor,
                    QDBusConnection("none")};
};

TEST_F(MenuBarTest, CutsItsIconOutOfThePot) {
    const QImage& icon = MenuBar::icon();
    EXPECT_EQ(icon.size(), QSize(32, 31));
    EXPECT_EQ(icon.deviceIndependentSize(), QSizeF(16, 15.5));
    EXPECT_EQ(icon.pixelColor(8, 0), QColor(0, 0, 0, 255));
    for (const QPoint clear : {QPoint(0, 0), QPoint(10, 5), QPoint(4, 30), QPoint(14, 29)})
        EXPECT_EQ(icon.pixelColor(clear).alpha(), 0) << clear.x() << " " << clear.y();
    int opaque = 0;
    for (int y = 0; y < icon.height(); ++y)
        for (int x = 0; x < icon.width(); ++x)
            opaque += icon.pixelColor(x, y).alpha() == 255;
    EXPECT_EQ(opaque, 712) << "letters of the pot";
}

TEST_F(MenuBarTest, IsOperatedByKeys) {
    std::vector<std::string> chosen;
    QObject::connect(&menuBar.contents(), &MenuContents::feedSelectionChosen, &menuBar,
                     [&] { chosen.push_back("feed"); });
    QObject::connect(&menuBar.contents(), &MenuContents::testFlamesChosen, &menuBar,
                     [&] { chosen.push_back("flames"); });
    menuBar.popUp({0, 0});
    type({Qt::Key_Down, Qt::Key_Return}); // skips the header and the section's title
    EXPECT_EQ(popup(), nullptr);
    menuBar.popUp({0, 0});
    type({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}); // skips the disabled item
    EXPECT_THAT(chosen, ElementsAre("feed", "flames"));
    menuBar.popUp({0, 0}); // to the skins and back
    type({Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Right});
    type({Qt::Key_Left, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Space});
    EXPECT_FALSE(settings.sound.get());
    menuBar.popUp({0, 0});
    type({Qt::Key_Escape});
    EXPECT_EQ(popup(), nullptr);
    EXPECT_EQ(chosen.size(), 2U);
}

TEST_F(MenuBarTest, CreatesOnePopupPerOpening) {
    menuBar.popUp({0, 0});
    const QPointer<PopupMenu> first = popup();
    ASSERT_TRUE(first);
    settings.mode.set(DisposeMode::dissolve);
    EXPECT_THAT(textsOf(*first), testing::Not(testing::Contains(testing::HasSubstr("Ask before"))));
    menuBar.popUp({0, 0});
    EXPECT_FALSE(first);
    ASSERT_TRUE(popup());
    EXPECT_THAT(textsOf(*popup()), testing::Contains("\u2003Ask before dissolving"));
}

TEST_F(MenuBarTest, UpdatesTheOpenHeader) {
    menuBar.popUp({0, 0});
    const auto* const header = popup()->findChild<MenuStats*>();
    ASSERT_TRUE(header);
    EXPECT_EQ(header->width(), 280);
    feed({1200, 1200});
    QStringList lines;
    for (const QLabel* const label : header->findChildren<QLabel*>())
        lines << label->text();
    EXPECT_EQ(lines, QStringList({"2", "sacrifices", "2 KB", "consumed", "1", "day streak",
                                  "Today: 2 items, 2 KB · 1 of 19 achievements"}));
    EXPECT_EQ(header->accessibleName(), "2 sacrifices · 2 KB consumed · 1 day streak");
}

TEST_F(MenuBarTest, ShowsHostileNamesInOneLine) {
    Sacrifice hostile;
    hostile.name = "a&b\n\tc" + std::string(250, 'x');
    ledger.record({hostile});
    menuBar.popUp({0, 0});
    const auto menus = popup()->findChildren<QMenu*>();
    ASSERT_FALSE(menus.empty());
    const QString title = menus.front()->actions().front()->text();
    EXPECT_TRUE(title.startsWith("a&&b\\n\\x09c")) << title.toStdString();
    EXPECT_LT(title.size(), 70);
}

TEST_F(MenuBarTest, TrayMenuHasTheSameEntriesAsText) {
    QMenu menu;
    menuBar.menuNeedsUpdate(menu);
    const auto texts = textsOf(menu);
    ASSERT_EQ(texts.size(), 21U) << "the header has two lines";
    EXPECT_THAT(std::vector(texts.begin(), texts.begin() + 5),
                ElementsAre("0 sacrifices · Zero KB consumed · 0 day streak",
                            "Today: 0 items, Zero KB · 0 of 19 achievements", "-", "Quick Actions",
                            "Feed Finder Selection"));
    for (const int title : {0, 1, 3})
        EXPECT_FALSE(menu.actions()[title]->isEnabled());
    const auto same = menu.actions();
    menuBar.menuNeedsUpdate(menu);
    EXPECT_EQ(menu.actions(), same) << "nothing changed";
    feed({1200});
    menuBar.menuNeedsUpdate(menu);
    EXPECT_THAT(textsOf(menu)[0], testing::StartsWith("1 sacrifice ·"));
    EXPECT_EQ(menu.findChildren<QMenu*>().size(), 2) << "the previous submenus were deleted";
}

} // namespace
} // namespace vexmoor
