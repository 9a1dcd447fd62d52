#include "SerialQueue.h"

#include <utility>

namespace vexmoor {

SerialQueue::SerialQueue() : m_thread([this] { run(); }) {}

SerialQueue::~SerialQueue() {
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

void SerialQueue::post(std::function<void()> job) {
    {
        const std::lock_guard lock(m_mutex);
        m_jobs.push_back(std::move(job));
    }
    m_changed.notify_one();
}

void SerialQueue::run() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_ending || !m_jobs.empty(); });
        if (m_jobs.empty())
            return;
        {
            const auto job = std::move(m_jobs.front());
            m_jobs.pop_front();
            lock.unlock();
            job();
        } // destroys the job outside the lock, before the next one starts
        lock.lock();
    }
}

} // namespace vexmoor
