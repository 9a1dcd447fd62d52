#pragma once

#include "StatsView.h"

#include "base/Path.h"

#include <QMainWindow>

namespace vexmoor {

class DropFrame;

/// The main window. Reports drops like the tile. The owner adds a menu bar and stores its geometry.
/// Main thread.
class StatsWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit StatsWindow(StatsView::Parts parts);

    [[nodiscard]] StatsView& view() const { return *m_view; }

  signals:
    /// Items were dropped; `others` is the number of items that are not on this computer.
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
