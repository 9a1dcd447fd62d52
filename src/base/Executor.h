#pragma once

#include <functional>

namespace vexmoor {

/// Runs what is posted to it, one after another, in the order of posting. post() may be called
/// from any thread and returns at once.
class Executor {
  public:
    virtual ~Executor() = default;
    virtual void post(std::function<void()> job) = 0;
};

} // namespace vexmoor
