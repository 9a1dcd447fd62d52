#pragma once

#include "app/EndSignals.h"
#include "app/QuitEvents.h"

namespace vexmoor {

/// All ways in which the system asks the program to end: signals, and Qt's quit events. Needs the
/// application; main thread.
class EndRequests : public QObject {
    Q_OBJECT

  public:
    EndRequests();

  signals:
    void endRequested();

  private:
    EndSignals m_signals;
    QuitEvents m_quitEvents;
};

} // namespace vexmoor
