#pragma once

#include "EditActions.h"

#include "base/Published.h"

#include <QAction>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

#include <vector>

class QMenuBar;

namespace vexmoor {

class UndoStack;

/// The main menu: one set of actions shared by all windows for their shortcuts, and menu bars for
/// windows that want one. Most actions emit signals; those of the Edit and Window menus act
/// directly on the focused widget or active window. Main thread.
class MainMenu : public QObject {
    Q_OBJECT

  public:
    /// The undo stack must outlive it; "Undo" shows the name of its newest action.
    MainMenu(UndoStack& undoStack, bool hasDebugMenu);

    /// Adds the shortcuts to a window. "Hide Vexmoor" hides the window.
    void addTo(QWidget& window);

    /// Returns a menu bar with all menus, owned by the caller.
    [[nodiscard]] QMenuBar* makeBar() const;

    /// Disables "Check for Updates…" during a check.
    void setCheckingForUpdates(bool isChecking);

  signals:
    void aboutChosen();
    void updatesChosen();
    void statsChosen();
    void onboardingChosen();
    void quitChosen();
    void undoChosen();
    void unlockAllChosen();
    void resetChosen();

  private:
    struct Menu {
        QString title;
        QList<QAction*> items;
    };
    using Signal = void (MainMenu::*)();

    void addApplicationMenu();
    void addEditMenu(UndoStack& undoStack);
    void addDebugMenu();
    void addWindowMenu();
    QAction* makeItem(const QString& title, const char* key);
    QAction* makeItem(const QString& title, const char* key, Signal signal);
    QAction* makeSeparator();
    void hideWindows();

    std::vector<Menu> m_menus;
    QAction* m_updates = nullptr;
    EditActions m_editing;
    QList<QPointer<QWidget>> m_windows;
    Subscription m_undoTitle;
};

} // namespace vexmoor
