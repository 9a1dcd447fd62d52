#pragma once

#include "dock/FrameTimer.h"

#include <set>

namespace vexmoor {

/// Makes timers that rest together, so that nothing moves on a screen that nobody sees. A timer
/// that runs or is started while they rest fires again, an interval later, once they do not. Main
/// thread; must outlive its timers.
class RestingTimers {
  public:
    explicit RestingTimers(MakeFrameTimer make = std::make_unique<QtFrameTimer>);

    [[nodiscard]] MakeFrameTimer maker();
    void setResting(bool resting);

  private:
    class Timer;

    MakeFrameTimer m_make;
    std::set<Timer*> m_timers;
    bool m_isResting = false;
};

} // namespace vexmoor
