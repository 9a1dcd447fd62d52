#pragma once

#include "intake/UndoStack.h"

#include <QMenuBar>

namespace vexmoor {

/// The main menu, as the bar of the program's window. Its items are facts that somebody else acts
/// on; only the Edit menu's cutting and pasting acts by itself, on what has the focus.
class MainMenu : public QMenuBar {
    Q_OBJECT

  public:
    /// The undo stack must outlive it; "Undo" is titled after its newest action.
    MainMenu(UndoStack& undoStack, bool hasDebugMenu);

  signals:
    void aboutChosen();
    void updatesChosen();
    void statsChosen();
    void onboardingChosen();
    void hideChosen();
    void quitChosen();
    void undoChosen();
    void redoChosen();
    void unlockAllChosen();
    void resetChosen();

  private:
    void addApplicationMenu();
    void addEditMenu(UndoStack& undoStack);
    void addDebugMenu();
    void addWindowMenu();

    Subscription m_undoTitle;
};

} // namespace vexmoor
