#pragma once

#include <QObject>

namespace vexmoor {

/// Turns the events by which Qt asks the application to quit (the session manager's "die" among
/// them) into a signal. Qt itself would leave the event loop at once, in the middle of a batch.
/// Needs the application; main thread.
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
