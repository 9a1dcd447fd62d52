#pragma once

#include "base/Published.h"
#include "disposal/WorkMeter.h"

#include <functional>
#include <memory>
#include <vector>

namespace vexmoor {

/// The batches that are not over, each with the meter that counts and stops its work. Main thread.
class RunningBatches {
  public:
    using Meter = std::shared_ptr<WorkMeter>;

    /// Adds a batch with this meter, or with one of its own.
    Meter begin(Meter meter);
    void end(const Meter& meter);

    /// Leaves what has not begun untouched, of all batches that are there and that still come.
    void stop();
    [[nodiscard]] bool isStopped() const { return m_stopped; }

    [[nodiscard]] std::size_t count() const { return m_meters.get().size(); }
    /// Calls with the count at once and whenever it changes.
    Subscription subscribe(std::function<void(std::size_t)> subscriber);

  private:
    using Meters = std::vector<Meter>;

    Published<Meters> m_meters;
    bool m_stopped = false;
};

} // namespace vexmoor
