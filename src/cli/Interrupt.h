#pragma once

#include "disposal/WorkMeter.h"

namespace vexmoor {

/// While it lives, the first SIGINT, SIGTERM or SIGHUP sets the meter's `stop`; a second one ends
/// the process as usual. One at a time.
class Interrupt {
  public:
    explicit Interrupt(WorkMeter& meter);
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;
};

} // namespace vexmoor
