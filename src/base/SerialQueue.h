#pragma once

#include "base/Executor.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace vexmoor {

/// A queue with its own thread. The destructor runs all posted jobs and joins the thread.
class SerialQueue : public Executor {
  public:
    SerialQueue();
    ~SerialQueue() override;
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;

    void post(std::function<void()> job) override;

  private:
    void run();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_jobs;
    bool m_ending = false;
    std::thread m_thread;
};

} // namespace vexmoor
