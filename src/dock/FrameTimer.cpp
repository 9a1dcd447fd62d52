#include "FrameTimer.h"

#include <algorithm>

namespace vexmoor {

QtFrameTimer::QtFrameTimer() {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { timeout(); });
}

void QtFrameTimer::start(Interval interval, std::function<void()> fire) {
    m_interval = std::chrono::duration_cast<Clock::duration>(interval);
    m_due = Clock::now();
    m_fire = std::move(fire);
    schedule();
}

void QtFrameTimer::schedule() {
    const auto now = Clock::now();
    m_due = std::max(m_due + m_interval, now);
    m_timer.start(std::chrono::round<std::chrono::milliseconds>(m_due - now));
}

void QtFrameTimer::timeout() {
    schedule();
    const auto fire = m_fire;
    fire();
}

} // namespace vexmoor
