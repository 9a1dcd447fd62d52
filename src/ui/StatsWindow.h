#pragma once

#include "StatsView.h"

#include "base/Path.h"

#include <QMainWindow>

namespace vexmoor {

class DropFrame;

/// The program's main window. What is dropped onto it is reported as on the tile. The owner gives
/// it a menu bar and keeps its place. Main thread.
class StatsWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit StatsWindow(StatsView::Parts parts);

    [[nodiscard]] StatsView& view() const { return *m_view; }

  signals:
    /// Items were dropped, and `others` things that are not on this computer.
    void dropped(const std::vector<vexmoor::Path>& items, int others);

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    StatsView* m_view;
    DropFrame* m_frame;
};

} // namespace vexmoor
