#pragma once

#include <QObject>

namespace vexmoor {

/// Emits a signal for the events that ask the application to quit (the session manager's "die"
/// among them). Without it Qt leaves the event loop at once, in the middle of a batch. Needs a
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
