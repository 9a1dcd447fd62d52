#pragma once

#include "disposal/WorkMeter.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace vexmoor {

/// While it lives, shows on a terminal what a meter counts: items, bytes, rate. Short work shows
/// nothing, nor does work that has counted nothing yet. Where it is not wanted or stderr is no
/// terminal, no thread is started.
class ProgressLine {
  public:
    explicit ProgressLine(const WorkMeter& meter, bool isWanted = true);
    ~ProgressLine();

    /// Whether there is a terminal for it.
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
