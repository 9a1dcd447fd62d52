#include "app/MainMenu.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using testing::ElementsAre;

/// One line an item: its menu, title and key; a dash for a separator.
std::vector<std::string> linesOf(const QMenuBar& bar) {
    std::vector<std::string> lines;
    for (const QAction* const menu : bar.actions()) {
        EXPECT_TRUE(menu->text().startsWith('&')) << "the keyboard reaches it";
        const QString name = menu->text().mid(1);
        for (const QAction* const item : menu->menu()->actions())
            lines.push_back(item->isSeparator()
                                ? name.toStdString() + ": -"
                                : QString("%1: %2 %3")
                                      .arg(name, item->text(), item->shortcut().toString())
                                      .trimmed()
                                      .toStdString());
    }
    return lines;
}

QAction* itemNamed(const QMenuBar& bar, const QString& title) {
    for (const QAction* const menu : bar.actions())
        for (QAction* const item : menu->menu()->actions())
            if (item->text() == title)
                return item;
    return nullptr;
}

TEST(MainMenuTest, HasItsItemsInTheirOrder) {
    UndoStack undoStack;
    const MainMenu menu(undoStack, true);
    EXPECT_THAT(linesOf(menu),
                ElementsAre("Vexmoor: About Vexmoor", "Vexmoor: Check for Updates…", "Vexmoor: -",
                            "Vexmoor: Vexmoor… Ctrl+,", "Vexmoor: Set Up Permissions…",
                            "Vexmoor: -", "Vexmoor: Hide Vexmoor Ctrl+H", "Vexmoor: -",
                            "Vexmoor: Quit Vexmoor Ctrl+Q", "Edit: Undo Ctrl+Z",
                            "Edit: Redo Ctrl+Shift+Z", "Edit: -", "Edit: Cut Ctrl+X",
                            "Edit: Copy Ctrl+C", "Edit: Paste Ctrl+V", "Edit: Select All Ctrl+A",
                            "Debug: Unlock Everything", "Debug: Reset Progress",
                            "Window: Close Ctrl+W", "Window: Minimise Ctrl+M"));
    EXPECT_EQ(itemNamed(MainMenu(undoStack, false), "Reset Progress"), nullptr);
}

TEST(MainMenuTest, OffersToUndoTheNewestActionByItsName) {
    UndoStack undoStack;
    const MainMenu menu(undoStack, false);
    QAction* const undo = itemNamed(menu, "Undo");
    ASSERT_NE(undo, nullptr);
    EXPECT_FALSE(undo->isEnabled());
    undoStack.push(
        "Sacrifice of 3 Items", [] {}, [] { return true; });
    EXPECT_TRUE(undo->isEnabled());
    EXPECT_EQ(undo->text(), "Undo Sacrifice of 3 Items");
    undoStack.undo();
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_FALSE(itemNamed(menu, "Redo")->isEnabled());
}

TEST(MainMenuTest, EditsWhatHasTheFocus) {
    UndoStack undoStack;
    QMainWindow window;
    auto* const menu = new MainMenu(undoStack, false);
    auto* const field = new QLineEdit("text");
    window.setMenuBar(menu);
    window.setCentralWidget(field);
    window.show();
    window.activateWindow();
    field->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return field->hasFocus(); }));
    for (const char* title : {"Select All", "Cut", "Paste", "Paste"})
        itemNamed(*menu, title)->trigger();
    EXPECT_EQ(field->text(), "texttext");
}

} // namespace
} // namespace vexmoor
