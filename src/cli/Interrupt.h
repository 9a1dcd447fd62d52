#pragma once

#include "disposal/WorkMeter.h"

namespace vexmoor {

/// During its lifetime, the first SIGINT, SIGTERM or SIGHUP sets the meter's `stop`; a second one
/// has its default effect. Only one may exist at a time.
class Interrupt {
  public:
    /// Which process does the work. If another process does, SIGHUP ends this process instead of
    /// stopping the work; the other process then knows that it must report the failures itself.
    enum class Work { own, ofOthers };

    Interrupt(WorkMeter& meter, Work work);
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

  private:
    Work m_work;
};

} // namespace vexmoor
