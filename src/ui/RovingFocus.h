#pragma once

#include <QObject>

#include <functional>
#include <vector>

class QWidget;

namespace vexmoor {

/// One stop of the Tab key for several widgets in rows and columns: arrows, Home and End move the
/// focus among those that are enabled. Main thread.
class RovingFocus : public QObject {
    Q_OBJECT

  public:
    /// The widgets in reading order; they outlive this. `columns` answers how many stand side by
    /// side at the moment.
    RovingFocus(std::vector<QWidget*> widgets, std::function<int()> columns,
                QObject* parent = nullptr);

    /// The one that the Tab key reaches from now on.
    void setStop(QWidget* widget);

    bool eventFilter(QObject* watched, QEvent* event) override;

  signals:
    /// A widget has the focus now.
    void moved(QWidget* widget);

  private:
    [[nodiscard]] bool move(QWidget* from, int key);

    std::vector<QWidget*> m_widgets;
    std::function<int()> m_columns;
};

} // namespace vexmoor
