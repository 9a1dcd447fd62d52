#pragma once

#include "dock/FrameTimer.h"

#include <set>

namespace vexmoor {

/// Creates timers that can be paused together while the screen is not visible. A timer that runs or
/// is started while paused fires one interval after resuming. Main thread; must outlive its timers.
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
