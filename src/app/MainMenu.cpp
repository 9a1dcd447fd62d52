#include "MainMenu.h"

#include <QAction>
#include <QApplication>
#include <QKeySequence>
#include <QMetaMethod>

namespace vexmoor {
namespace {

/// Calls the slot of that name of the widget that has the focus, where it has such a slot.
void sendToFocus(const char* slot) {
    if (QWidget* const focused = QApplication::focusWidget())
        if (focused->metaObject()->indexOfSlot(QByteArray(slot) + "()") >= 0)
            QMetaObject::invokeMethod(focused, slot);
}

template <typename Receiver>
QAction* addItem(QMenu* menu, const QString& title, const char* key, const Receiver* receiver,
                 void (Receiver::*slot)()) {
    QAction* const item = menu->addAction(title);
    item->setShortcut(QKeySequence(QLatin1String(key)));
    item->setMenuRole(QAction::NoRole);
    QObject::connect(item, &QAction::triggered, receiver, slot);
    return item;
}

} // namespace

MainMenu::MainMenu(UndoStack& undoStack, bool hasDebugMenu) {
    addApplicationMenu();
    addEditMenu(undoStack);
    if (hasDebugMenu)
        addDebugMenu();
    addWindowMenu();
}

void MainMenu::addApplicationMenu() {
    QMenu* const menu = addMenu(QStringLiteral("&Vexmoor"));
    addItem(menu, tr("About Vexmoor"), "", this, &MainMenu::aboutChosen);
    addItem(menu, tr("Check for Updates…"), "", this, &MainMenu::updatesChosen);
    menu->addSeparator();
    addItem(menu, tr("Vexmoor…"), "Ctrl+,", this, &MainMenu::statsChosen);
    addItem(menu, tr("Set Up Permissions…"), "", this, &MainMenu::onboardingChosen);
    menu->addSeparator();
    addItem(menu, tr("Hide Vexmoor"), "Ctrl+H", this, &MainMenu::hideChosen);
    menu->addSeparator();
    addItem(menu, tr("Quit Vexmoor"), "Ctrl+Q", this, &MainMenu::quitChosen);
}

void MainMenu::addEditMenu(UndoStack& undoStack) {
    QMenu* const menu = addMenu(tr("&Edit"));
    QAction* const undo = addItem(menu, tr("Undo"), "Ctrl+Z", this, &MainMenu::undoChosen);
    QAction* const redo = addItem(menu, tr("Redo"), "Ctrl+Shift+Z", this, &MainMenu::redoChosen);
    m_undoTitle = undoStack.subscribe([&undoStack, undo, redo](const std::string&) {
        undo->setText(QString::fromStdString(undoStack.undoMenuItemTitle()));
        undo->setEnabled(undoStack.canUndo());
        redo->setText(QString::fromStdString(undoStack.redoMenuItemTitle()));
        redo->setEnabled(undoStack.canRedo());
    });
    menu->addSeparator();
    const auto add = [menu](const QString& title, const char* key, const char* slot) {
        QAction* const item = menu->addAction(title);
        item->setShortcut(QKeySequence(QLatin1String(key)));
        connect(item, &QAction::triggered, item, [slot] { sendToFocus(slot); });
    };
    add(tr("Cut"), "Ctrl+X", "cut");
    add(tr("Copy"), "Ctrl+C", "copy");
    add(tr("Paste"), "Ctrl+V", "paste");
    add(tr("Select All"), "Ctrl+A", "selectAll");
}

void MainMenu::addDebugMenu() {
    QMenu* const menu = addMenu(tr("&Debug"));
    addItem(menu, tr("Unlock Everything"), "", this, &MainMenu::unlockAllChosen);
    addItem(menu, tr("Reset Progress"), "", this, &MainMenu::resetChosen);
}

void MainMenu::addWindowMenu() {
    QMenu* const menu = addMenu(tr("&Window"));
    const auto add = [this, menu](const QString& title, const char* key, auto act) {
        QAction* const item = menu->addAction(title);
        item->setShortcut(QKeySequence(QLatin1String(key)));
        connect(item, &QAction::triggered, this, act);
    };
    add(tr("Close"), "Ctrl+W", [this] { window()->close(); });
    add(tr("Minimise"), "Ctrl+M", [this] { window()->showMinimized(); });
}

} // namespace vexmoor
