#include "MainMenu.h"

#include "intake/UndoStack.h"

#include <QApplication>
#include <QKeySequence>
#include <QMenuBar>

namespace vexmoor {

MainMenu::MainMenu(UndoStack& undoStack, bool hasDebugMenu) {
    addApplicationMenu();
    addEditMenu(undoStack);
    if (hasDebugMenu)
        addDebugMenu();
    addWindowMenu();
}

QAction* MainMenu::makeItem(const QString& title, const char* key) {
    auto* const item = new QAction(title, this);
    item->setShortcut(QKeySequence(QLatin1String(key)));
    item->setMenuRole(QAction::NoRole);
    return item;
}

QAction* MainMenu::makeItem(const QString& title, const char* key, Signal signal) {
    QAction* const item = makeItem(title, key);
    connect(item, &QAction::triggered, this, signal);
    return item;
}

QAction* MainMenu::makeSeparator() {
    auto* const line = new QAction(this);
    line->setSeparator(true);
    return line;
}

void MainMenu::addApplicationMenu() {
    m_updates = makeItem({}, "", &MainMenu::updatesChosen);
    setCheckingForUpdates(false);
    QAction* const hide = makeItem(tr("Hide Vexmoor"), "Ctrl+H");
    connect(hide, &QAction::triggered, this, &MainMenu::hideWindows);
    m_menus.push_back(
        {QStringLiteral("&Vexmoor"),
         {makeItem(tr("About Vexmoor"), "", &MainMenu::aboutChosen), m_updates, makeSeparator(),
          makeItem(tr("Vexmoor…"), "Ctrl+,", &MainMenu::statsChosen),
          makeItem(tr("Set Up Permissions…"), "", &MainMenu::onboardingChosen), makeSeparator(),
          hide, makeSeparator(), makeItem(tr("Quit Vexmoor"), "Ctrl+Q", &MainMenu::quitChosen)}});
}

void MainMenu::addEditMenu(UndoStack& undoStack) {
    QAction* const undo = makeItem(tr("Undo"), "Ctrl+Z", &MainMenu::undoChosen);
    QAction* const redo = makeItem(tr("Redo"), "Ctrl+Shift+Z");
    redo->setEnabled(false); // no action can be redone
    m_undoTitle = undoStack.subscribe([&undoStack, undo](const std::string&) {
        undo->setText(QString::fromStdString(undoStack.undoMenuItemTitle()));
        undo->setEnabled(undoStack.canUndo());
    });
    Menu menu{tr("&Edit"), {undo, redo, makeSeparator()}};
    const auto add = [&](const QString& title, const char* key, EditActions::Command command) {
        menu.items.push_back(makeItem(title, key));
        m_editing.set(command, *menu.items.back());
    };
    add(tr("Cut"), "Ctrl+X", EditActions::Command::cut);
    add(tr("Copy"), "Ctrl+C", EditActions::Command::copy);
    add(tr("Paste"), "Ctrl+V", EditActions::Command::paste);
    add(tr("Select All"), "Ctrl+A", EditActions::Command::selectAll);
    m_menus.push_back(menu);
}

void MainMenu::addDebugMenu() {
    m_menus.push_back({tr("&Debug"),
                       {makeItem(tr("Unlock Everything"), "", &MainMenu::unlockAllChosen),
                        makeItem(tr("Reset Progress"), "", &MainMenu::resetChosen)}});
}

void MainMenu::addWindowMenu() {
    QAction* const close = makeItem(tr("Close"), "Ctrl+W");
    QAction* const minimise = makeItem(tr("Minimise"), "Ctrl+M");
    connect(close, &QAction::triggered, this, [] {
        if (QWidget* const window = QApplication::activeWindow())
            window->close();
    });
    connect(minimise, &QAction::triggered, this, [] {
        if (QWidget* const window = QApplication::activeWindow())
            window->showMinimized();
    });
    m_menus.push_back({tr("&Window"), {close, minimise}});
}

void MainMenu::addTo(QWidget& window) {
    m_windows.removeAll(nullptr);
    if (m_windows.contains(&window))
        return;
    m_windows.push_back(&window);
    for (const Menu& menu : m_menus)
        window.addActions(menu.items);
}

QMenuBar* MainMenu::makeBar() const {
    auto* const bar = new QMenuBar;
    for (const Menu& menu : m_menus)
        bar->addMenu(menu.title)->addActions(menu.items);
    return bar;
}

void MainMenu::setCheckingForUpdates(bool isChecking) {
    m_updates->setText(isChecking ? tr("Checking for Updates…") : tr("Check for Updates…"));
    m_updates->setEnabled(!isChecking);
}

void MainMenu::hideWindows() {
    for (const auto& window : std::as_const(m_windows))
        if (window)
            window->hide();
}

} // namespace vexmoor
