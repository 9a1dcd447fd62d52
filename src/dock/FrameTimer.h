#pragma once

#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

namespace vexmoor {

/// A repeating timer of the main thread (port).
class FrameTimer {
  public:
    using Interval = std::chrono::duration<double>;

    virtual ~FrameTimer() = default;
    /// Calls `fire` every interval from now on, the first time after one. Starting again replaces
    /// what ran. `fire` may stop or start the timer.
    virtual void start(Interval interval, std::function<void()> fire) = 0;
    virtual void stop() = 0;
};

using MakeFrameTimer = std::function<std::unique_ptr<FrameTimer>()>;

/// Keeps the rate on average although Qt's timers count whole milliseconds. Firings missed by a
/// busy main thread are not made up for.
class QtFrameTimer : public FrameTimer {
  public:
    QtFrameTimer();
    void start(Interval interval, std::function<void()> fire) override;
    void stop() override { m_timer.stop(); }

  private:
    using Clock = std::chrono::steady_clock;

    void schedule();
    void timeout();

    QTimer m_timer;
    Clock::duration m_interval{};
    Clock::time_point m_due;
    std::function<void()> m_fire;
};

} // namespace vexmoor
