#pragma once

#include <QElapsedTimer>
#include <QTimer>

class QWidget;

namespace vexmoor {

/// A short motion of a widget between two of its states, fast at first, which repaints the widget
/// at every step. A widget that cannot be seen changes at once, as all do where less motion is
/// wanted. Owned by the widget.
class Transition : public QObject {
    Q_OBJECT

  public:
    Transition(QWidget& widget, int milliseconds);

    /// Where it is: what was given last, except on the way there.
    [[nodiscard]] double at() const { return m_at; }

    void setAt(double at);
    void moveTo(double at);

  private:
    void step();

    QWidget& m_widget;
    int m_milliseconds;
    QTimer m_frames;
    QElapsedTimer m_since;
    double m_at = 0;
    double m_from = 0;
    double m_to = 0;
};

} // namespace vexmoor
