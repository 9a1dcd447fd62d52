#pragma once

#include "disposal/WorkMeter.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace vexmoor {

/// During its lifetime, shows a meter's items, bytes and rate on the terminal. Shows nothing for
/// short work, or before anything is counted. Starts no thread if it is disabled or stderr is no
/// terminal.
class ProgressLine {
  public:
    explicit ProgressLine(const WorkMeter& meter, bool isWanted = true);
    ~ProgressLine();

    /// True if it is enabled and stderr is a terminal.
    [[nodiscard]] bool isShown() const { return m_thread.joinable(); }

    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

  private:
    void run();

    const WorkMeter& m_meter;
    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_isEnding = false;
    std::thread m_thread;
};

} // namespace vexmoor
