#pragma once

#include <functional>

namespace vexmoor {

/// Runs posted jobs one at a time, in the order of posting. post() is thread-safe and does not
/// block.
class Executor {
  public:
    virtual ~Executor() = default;
    virtual void post(std::function<void()> job) = 0;
};

} // namespace vexmoor
