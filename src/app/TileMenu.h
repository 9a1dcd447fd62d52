#pragma once

#include <QMenu>

namespace vexmoor {

class Settings;
class UndoStack;

/// The menu of the tile's right button, made anew each time it opens. It goes when it is closed.
class TileMenu : public QMenu {
    Q_OBJECT

  public:
    TileMenu(Settings& settings, const UndoStack& undoStack);

  signals:
    void undoChosen();
    void testFlamesChosen();
    void statsChosen();
    void quitChosen();
};

} // namespace vexmoor
