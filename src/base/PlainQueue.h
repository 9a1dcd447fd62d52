#pragma once

#include "base/Executor.h"

#include <deque>

namespace vexmoor {

/// A queue without a thread: its owner runs the posted jobs. Not thread-safe.
class PlainQueue : public Executor {
  public:
    void post(std::function<void()> job) override { m_jobs.push_back(std::move(job)); }

    /// Runs the first job. Returns false if the queue is empty.
    bool runOne() {
        if (m_jobs.empty())
            return false;
        const auto job = std::move(m_jobs.front());
        m_jobs.pop_front();
        job();
        return true;
    }

    /// Runs all jobs, including those posted in the meantime.
    void runUntilEmpty() {
        while (runOne()) {
        }
    }

  private:
    std::deque<std::function<void()>> m_jobs;
};

} // namespace vexmoor
