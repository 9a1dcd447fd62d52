#include "RestingTimers.h"

#include <utility>

namespace vexmoor {

class RestingTimers::Timer : public FrameTimer {
  public:
    explicit Timer(RestingTimers& owner) : m_owner(owner), m_timer(owner.m_make()) {
        m_owner.m_timers.insert(this);
    }
    ~Timer() override { m_owner.m_timers.erase(this); }

    void start(Interval interval, std::function<void()> fire) override {
        m_interval = interval;
        m_fire = std::move(fire);
        if (!m_owner.m_isResting)
            m_timer->start(m_interval, m_fire);
    }

    void stop() override {
        m_fire = nullptr;
        m_timer->stop();
    }

    void setResting(bool resting) {
        if (resting)
            m_timer->stop();
        else if (m_fire)
            m_timer->start(m_interval, m_fire);
    }

  private:
    RestingTimers& m_owner;
    std::unique_ptr<FrameTimer> m_timer;
    Interval m_interval{};
    std::function<void()> m_fire; ///< empty while stopped
};

RestingTimers::RestingTimers(MakeFrameTimer make) : m_make(std::move(make)) {}

MakeFrameTimer RestingTimers::maker() {
    return [this] { return std::make_unique<Timer>(*this); };
}

void RestingTimers::setResting(bool resting) {
    if (std::exchange(m_isResting, resting) == resting)
        return;
    for (Timer* const timer : m_timers)
        timer->setResting(resting);
}

} // namespace vexmoor
