#pragma once

#include "base/Published.h"
#include "disposal/WorkMeter.h"

#include <functional>
#include <memory>
#include <vector>

namespace vexmoor {

/// The unfinished batches, each with the meter that counts and stops its work. Main thread.
class RunningBatches {
  public:
    using Meter = std::shared_ptr<WorkMeter>;

    /// Adds a batch with this meter, or with a new one if it is null.
    Meter begin(Meter meter);
    void end(const Meter& meter);

    /// Stops all current and future batches; items that have not begun stay untouched.
    void stop();
    [[nodiscard]] bool isStopped() const { return m_stopped; }

    [[nodiscard]] std::size_t count() const { return m_meters.get().size(); }
    /// Calls `subscriber` with the count now and whenever it changes.
    Subscription subscribe(std::function<void(std::size_t)> subscriber);

  private:
    using Meters = std::vector<Meter>;

    Published<Meters> m_meters;
    bool m_stopped = false;
};

} // namespace vexmoor
