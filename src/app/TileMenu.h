#pragma once

#include <QMenu>

namespace vexmoor {

class Settings;
class UndoStack;

/// The menu of the tile's right button and of the window's menu key, made anew each time it opens.
/// It goes when it is closed.
class TileMenu : public QMenu {
    Q_OBJECT

  public:
    /// `canPutBack`: a batch, of this run or of an earlier one, has something left in the Bin.
    /// `canFeedSelection`: the session lets programs ask a file manager for its selection.
    TileMenu(Settings& settings, const UndoStack& undoStack, bool canPutBack,
             bool canFeedSelection);

  signals:
    void feedSelectionChosen();
    void putBackChosen();
    void testFlamesChosen();
    void statsChosen();
    void quitChosen();
};

} // namespace vexmoor
