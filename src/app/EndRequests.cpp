#include "EndRequests.h"

namespace vexmoor {

EndRequests::EndRequests() {
    connect(&m_signals, &EndSignals::endRequested, this, &EndRequests::endRequested);
    connect(&m_quitEvents, &QuitEvents::endRequested, this, &EndRequests::endRequested);
}

} // namespace vexmoor
