#include "X11FinderSelection.h"

#include "X11FinderSelectionLoop.h"

#include <utility>

namespace vexmoor {

X11FinderSelection::X11FinderSelection(Automation& automation, Executor& main,
                                       const QDBusConnection& session,
                                       std::function<void()> waitForRelease,
                                       std::function<void(std::uint8_t)> willPress)
    : m_automation(automation), m_main(main), m_session(session),
      m_waitForRelease(std::move(waitForRelease)), m_willPress(std::move(willPress)) {}

X11FinderSelection::~X11FinderSelection() {
    if (!m_thread.joinable())
        return;
    m_loop->end();
    m_thread.join();
}

void X11FinderSelection::query(Completion completion) {
    m_automation.request([this, completion = std::move(completion)](AutomationStatus status) {
        if (status == AutomationStatus::granted)
            start(completion);
        else
            m_main.post([completion] { completion(SelectionError::notPermitted); });
    });
}

void X11FinderSelection::start(Completion completion) {
    if (!m_loop) {
        m_loop = Loop::open(m_session, m_willPress, m_userActed);
        if (m_loop)
            m_thread = std::thread([this] { m_loop->run(m_waitForRelease); });
    }
    if (!m_loop) {
        m_main.post([completion] { completion(SelectionError::failed); });
        return;
    }
    m_loop->ask([&main = m_main, completion = std::move(completion)](SelectionResult result) {
        main.post([completion, result = std::move(result)] { completion(result); });
    });
}

} // namespace vexmoor
