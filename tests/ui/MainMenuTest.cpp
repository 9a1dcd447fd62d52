#include "WindowFixture.h"

#include "ui/MainMenu.h"

#include "intake/UndoStack.h"

#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <set>

namespace vexmoor {
namespace {

using namespace test;

struct MainMenuTest : WindowFixture {
    [[nodiscard]] QAction* item(const QString& title) const {
        for (const QAction* const each : bar->actions())
            for (QAction* const action : each->menu()->actions())
                if (action->text() == title)
                    return action;
        ADD_FAILURE() << "no " << title.toStdString();
        return nullptr;
    }
    /// Returns the enabled Edit items.
    [[nodiscard]] std::string editing() const {
        QStringList enabled;
        for (const char* const title : {"Cut", "Copy", "Paste", "Select All"})
            if (item(title)->isEnabled())
                enabled << title;
        return enabled.join(' ').toStdString();
    }
    static void activate(QWidget& window) {
        window.show();
        window.activateWindow();
        QCoreApplication::processEvents();
        ASSERT_TRUE(window.isActiveWindow());
    }

    UndoStack undoStack;
    MainMenu menu{undoStack, true};
    std::unique_ptr<QMenuBar> bar{menu.makeBar()};
};

TEST_F(MainMenuTest, HasUniqueShortcutsAndMnemonics) {
    std::set<QString> keys;
    for (const QAction* const top : bar->actions()) {
        EXPECT_TRUE(top->text().startsWith('&')) << top->text().toStdString();
        for (const QAction* const each : top->menu()->actions())
            EXPECT_TRUE(each->shortcut().isEmpty() ||
                        keys.insert(each->shortcut().toString()).second)
                << each->text().toStdString();
    }
    EXPECT_EQ(bar->actions().size(), 4);
    const std::unique_ptr<QMenuBar> plain(MainMenu(undoStack, false).makeBar());
    EXPECT_EQ(plain->actions().size(), 3) << "without the Debug menu";
}

TEST_F(MainMenuTest, OffersToUndoTheNewestActionByItsName) {
    QAction* const undo = item("Undo");
    EXPECT_FALSE(undo->isEnabled());
    undoStack.push(
        "Sacrifice of 3 Items", [] {}, [] { return true; });
    EXPECT_TRUE(undo->isEnabled());
    EXPECT_EQ(undo->text(), "Undo Sacrifice of 3 Items");
    undoStack.undo();
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_FALSE(item("Redo")->isEnabled());
}

TEST_F(MainMenuTest, EditCommandsApplyToTheFocusedField) {
    QWidget window;
    auto* const column = new QVBoxLayout(&window);
    auto* const field = new QLineEdit("text");
    auto* const list = new QListWidget;
    auto* const other = new QWidget;
    other->setFocusPolicy(Qt::StrongFocus);
    for (QWidget* const widget : std::initializer_list<QWidget*>{field, list, other})
        column->addWidget(widget);
    activate(window);
    QApplication::clipboard()->clear();
    other->setFocus();
    EXPECT_EQ(editing(), "");
    list->setFocus();
    EXPECT_EQ(editing(), "Select All");
    field->setFocus();
    field->deselect();
    EXPECT_EQ(editing(), "Select All");
    item("Select All")->trigger();
    EXPECT_EQ(editing(), "Cut Copy Select All");
    item("Cut")->trigger();
    EXPECT_EQ(editing(), "Paste");
    item("Paste")->trigger();
    item("Paste")->trigger();
    EXPECT_EQ(field->text(), "texttext");
    field->selectAll();
    field->setReadOnly(true);
    field->deselect();
    field->selectAll();
    EXPECT_EQ(editing(), "Copy Select All");
    field->setEchoMode(QLineEdit::Password);
    field->deselect();
    field->selectAll();
    EXPECT_EQ(editing(), "Select All");
    delete field;
    EXPECT_EQ(editing(), "");
}

TEST_F(MainMenuTest, AddsItsShortcutsToEachWindowAndActsOnTheActiveOne) {
    QMainWindow first;
    QWidget second;
    first.setMenuBar(menu.makeBar());
    menu.addTo(first);
    menu.addTo(second);
    menu.addTo(second); // windows are added each time they open
    int opened = 0;
    QObject::connect(&menu, &MainMenu::statsChosen, &menu, [&] { ++opened; });
    const auto pressKey = [](Qt::Key key) {
        QTest::keyClick(QApplication::activeWindow(), key, Qt::ControlModifier);
    };
    for (QWidget* const window : std::initializer_list<QWidget*>{&first, &second}) {
        activate(*window);
        pressKey(Qt::Key_Comma);
    }
    EXPECT_EQ(opened, 2);
    pressKey(Qt::Key_M);
    EXPECT_TRUE(second.isMinimized());
    EXPECT_FALSE(first.isMinimized());
    activate(first);
    pressKey(Qt::Key_W);
    EXPECT_FALSE(first.isVisible());
    EXPECT_TRUE(second.isVisible());
    activate(first);
    pressKey(Qt::Key_H);
    EXPECT_FALSE(first.isVisible() || second.isVisible());
}

TEST_F(MainMenuTest, OffersNoSecondCheckForUpdates) {
    menu.setCheckingForUpdates(true);
    EXPECT_FALSE(item("Checking for Updates…")->isEnabled());
    menu.setCheckingForUpdates(false);
    EXPECT_TRUE(item("Check for Updates…")->isEnabled());
}

} // namespace
} // namespace vexmoor
