#pragma once

#include <QObject>

#include <functional>
#include <vector>

class QWidget;

namespace vexmoor {

/// Makes widgets in rows and columns a single Tab stop: arrow keys, Home and End move the focus
/// among the enabled ones. Main thread.
class RovingFocus : public QObject {
    Q_OBJECT

  public:
    /// `widgets` are in reading order and must outlive this object. `columns` returns the current
    /// number of columns.
    RovingFocus(std::vector<QWidget*> widgets, std::function<int()> columns,
                QObject* parent = nullptr);

    /// Sets the widget that the Tab key focuses.
    void setStop(QWidget* widget);

    bool eventFilter(QObject* watched, QEvent* event) override;

  signals:
    /// A widget received the focus.
    void moved(QWidget* widget);

  private:
    [[nodiscard]] bool move(QWidget* from, int key);

    std::vector<QWidget*> m_widgets;
    std::function<int()> m_columns;
};

} // namespace vexmoor
