#include "FocusTracker.h"

#include "FocusListener.h"

#include <chrono>
#include <future>

namespace vexmoor {

namespace {

constexpr std::chrono::milliseconds kTimeout{40};

/// A key grab makes some programs report that they lost the focus, and regained it when the grab
/// ends. A loss younger than this is therefore ignored.
constexpr std::chrono::milliseconds kGrabEffect{150};

} // namespace

FocusTracker::FocusTracker(const QDBusConnection& session, std::function<void()> programIsInvisible)
    : m_programIsInvisible(std::move(programIsInvisible)),
      m_listener(std::make_unique<Listener>(*this, session)) {
    m_thread.setObjectName(QStringLiteral("focus"));
    m_listener->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::started, m_listener.get(), &Listener::start);
    QObject::connect(&m_thread, &QThread::finished, m_listener.get(), &Listener::stop,
                     Qt::DirectConnection);
}

FocusTracker::~FocusTracker() {
    stop();
}

void FocusTracker::start() {
    m_thread.start();
}

void FocusTracker::stop() {
    m_thread.quit();
    m_thread.wait();
}

void FocusTracker::setProcess(std::optional<pid_t> process) {
    {
        const std::lock_guard lock(m_mutex);
        m_process = process;
        if (!process || m_visible.contains(*process))
            return;
    }
    // The program may have reported its focus before we listened.
    QMetaObject::invokeMethod(
        m_listener.get(), [listener = m_listener.get(), process] { listener->search(*process); });
}

std::optional<FocusTracker::Element> FocusTracker::focusedElement() {
    const std::lock_guard lock(m_mutex);
    const bool isElsewhere = !m_focused || (m_process && m_focused->process != *m_process);
    const bool isLost = m_lost && std::chrono::steady_clock::now() - *m_lost > kGrabEffect;
    return isElsewhere || isLost ? std::nullopt : m_focused;
}

void FocusTracker::reportIfInvisible() {
    {
        const std::lock_guard lock(m_mutex);
        if (!m_process || m_visible.contains(*m_process) || !m_invisible.insert(*m_process).second)
            return;
    }
    m_programIsInvisible();
}

bool FocusTracker::isText() {
    const auto element = focusedElement();
    if (!element) {
        reportIfInvisible();
        return true;
    }
    const auto answer = std::make_shared<std::promise<bool>>();
    auto isText = answer->get_future();
    QMetaObject::invokeMethod(m_listener.get(), [listener = m_listener.get(), element, answer] {
        listener->ask(*element, answer);
    });
    if (isText.wait_for(kTimeout) == std::future_status::ready)
        return isText.get();
    const std::lock_guard lock(m_mutex);
    return m_focused != element || !m_showsFiles;
}

} // namespace vexmoor
