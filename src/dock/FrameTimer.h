#pragma once

#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

namespace vexmoor {

/// A repeating main-thread timer (port).
class FrameTimer {
  public:
    using Interval = std::chrono::duration<double>;

    virtual ~FrameTimer() = default;
    /// Calls `fire` after each interval. Restarting replaces the previous timer. `fire` may stop or
    /// restart the timer.
    virtual void start(Interval interval, std::function<void()> fire) = 0;
    virtual void stop() = 0;
};

using MakeFrameTimer = std::function<std::unique_ptr<FrameTimer>()>;

/// Keeps the average rate although QTimer counts whole milliseconds. Does not repeat firings that a
/// busy main thread missed.
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
