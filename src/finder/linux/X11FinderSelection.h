#pragma once

#include "finder/Automation.h"
#include "finder/FinderSelection.h"

#include "base/Executor.h"

#include <QDBusConnection>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

namespace vexmoor {

/// Asks the file manager that is active, or else the uppermost one, by a copy to the clipboard,
/// which gets back what it held. A connection and a thread of its own, which goes on giving the
/// clipboard's content to other programs afterwards.
class X11FinderSelection : public FinderSelection {
  public:
    /// Everything must outlive it. Completions that are not posted when it goes are dropped.
    /// On its thread `waitForRelease` is called before each query, and `willPress` before it
    /// presses an X key.
    X11FinderSelection(Automation& automation, Executor& main, const QDBusConnection& session,
                       std::function<void()> waitForRelease,
                       std::function<void(std::uint8_t)> willPress);
    ~X11FinderSelection() override;

    void query(Completion completion) override;

    /// The user does something else: a copy that comes from now on is not the one that a pending
    /// query asked for. Any thread.
    void userGoesOn() { m_userWentOn = true; }

  private:
    class Loop;

    void start(Completion completion);

    Automation& m_automation;
    Executor& m_main;
    QDBusConnection m_session;
    std::function<void()> m_waitForRelease;
    std::function<void(std::uint8_t)> m_willPress;
    std::atomic<bool> m_userWentOn = false;
    std::unique_ptr<Loop> m_loop; ///< from the first query on
    std::thread m_thread;
};

} // namespace vexmoor
