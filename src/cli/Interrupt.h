#pragma once

#include "disposal/WorkMeter.h"

namespace vexmoor {

/// While it lives, the first SIGINT, SIGTERM or SIGHUP sets the meter's `stop`; a second one ends
/// the process as usual. One at a time.
class Interrupt {
  public:
    /// Whose work it is: what others do, SIGHUP does not stop, but ends the process, so that who
    /// does it knows that nobody is left here to tell the user.
    enum class Work { own, ofOthers };

    Interrupt(WorkMeter& meter, Work work);
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

  private:
    Work m_work;
};

} // namespace vexmoor
