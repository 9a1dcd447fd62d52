#pragma once

#include "base/Executor.h"

#include <deque>

namespace vexmoor {

/// A queue without a thread: what is posted runs when its owner says so. One thread only.
class PlainQueue : public Executor {
  public:
    void post(std::function<void()> job) override { m_jobs.push_back(std::move(job)); }

    /// Runs the first job; false when there was none.
    bool runOne() {
        if (m_jobs.empty())
            return false;
        const auto job = std::move(m_jobs.front());
        m_jobs.pop_front();
        job();
        return true;
    }

    /// Runs jobs, those that they post included, until none is left.
    void runUntilEmpty() {
        while (runOne()) {
        }
    }

  private:
    std::deque<std::function<void()>> m_jobs;
};

} // namespace vexmoor
