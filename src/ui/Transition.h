#pragma once

#include <QElapsedTimer>
#include <QTimer>

class QWidget;

namespace vexmoor {

/// Moves a value of a widget to another in a short time, fast at first, and repaints the widget at
/// every step. The value of a widget that is not visible changes at once, as all do under reduced
/// motion. Uses a timer, which unlike Qt's animations causes no wake-ups once it has stopped.
/// Owned by the widget.
class Transition : public QObject {
    Q_OBJECT

  public:
    Transition(QWidget& widget, int milliseconds);

    /// The value now: during a motion, one on the way.
    [[nodiscard]] double at() const { return m_at; }

    void setAt(double at);
    void moveTo(double at);

  signals:
    /// The value is another one.
    void moved(double at);

    /// The motion that moveTo() began is over. Not emitted for one that setAt() or another motion
    /// ends early.
    void finished();

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
