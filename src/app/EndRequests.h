#pragma once

#include "app/EndSignals.h"
#include "app/QuitEvents.h"

namespace vexmoor {

/// Emits the system's requests to quit: signals, and Qt's quit events. Requires the application;
/// main thread.
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
