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

/// The main menu: one set of items for all windows, which have its keys, and a bar of it where
/// they want one. Most items are signals; those of the Edit and the Window menu act by themselves,
/// on what has the focus and on the active window. Main thread.
class MainMenu : public QObject {
    Q_OBJECT

  public:
    /// The undo stack must outlive it; "Undo" is titled after its newest action.
    MainMenu(UndoStack& undoStack, bool hasDebugMenu);

    /// Gives a window the keys. "Hide Vexmoor" hides it.
    void addTo(QWidget& window);

    /// A bar with all menus, which its caller owns.
    [[nodiscard]] QMenuBar* makeBar() const;

    /// While a check runs there is no second one.
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
