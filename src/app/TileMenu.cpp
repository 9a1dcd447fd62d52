#include "TileMenu.h"

#include "disposal/Settings.h"
#include "intake/UndoStack.h"

namespace vexmoor {

TileMenu::TileMenu(Settings& settings, const UndoStack& undoStack, bool canPutBack,
                   bool canFeedSelection) {
    setAttribute(Qt::WA_DeleteOnClose);
    addAction(tr("Feed File Manager Selection"), this, &TileMenu::feedSelectionChosen)
        ->setEnabled(canFeedSelection);
    QAction* const putBack =
        addAction(undoStack.canUndo()
                      ? tr("Put Back %1").arg(QString::fromStdString(undoStack.undoActionName()))
                      : tr("Put Back Last Sacrifice"),
                  this, &TileMenu::putBackChosen);
    putBack->setEnabled(canPutBack);
    addAction(tr("Test the Flames"), this, &TileMenu::testFlamesChosen);
    addSeparator();
    QAction* const dissolve = addAction(tr("Dissolve forever"), this, [&settings] {
        settings.mode.set(settings.mode.get() == DisposeMode::bin ? DisposeMode::dissolve
                                                                  : DisposeMode::bin);
    });
    dissolve->setCheckable(true);
    dissolve->setChecked(settings.mode.get() == DisposeMode::dissolve);
    QAction* const sound = addAction(tr("Sizzle sound"), this,
                                     [&settings] { settings.sound.set(!settings.sound.get()); });
    sound->setCheckable(true);
    sound->setChecked(settings.sound.get());
    addSeparator();
    addAction(tr("Open Vexmoor…"), this, &TileMenu::statsChosen);
    addAction(tr("Quit Vexmoor"), this, &TileMenu::quitChosen);
}

} // namespace vexmoor
