#pragma once

#include <QObject>

namespace vexmoor {

/// Emits a signal for the events that ask the application to quit, including the session manager's
/// "die". Without it, Qt leaves the event loop immediately, in the middle of a batch. Requires a
/// QCoreApplication. Main thread.
class QuitEvents : public QObject {
    Q_OBJECT

  public:
    QuitEvents();

  signals:
    void endRequested();

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
};

} // namespace vexmoor
