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

/// Reads the selection of the active file manager, or the topmost one, through a copy to the
/// clipboard, and restores the clipboard. Has its own connection and thread, which then serves the
/// restored content to other programs.
class X11FinderSelection : public FinderSelection {
  public:
    /// All arguments must outlive this object. Drops completions that are not posted before its
    /// destruction. On its thread, calls `waitForRelease` before each query and `willPress` before
    /// it presses an X key.
    X11FinderSelection(Automation& automation, Executor& main, const QDBusConnection& session,
                       std::function<void()> waitForRelease,
                       std::function<void(std::uint8_t)> willPress);
    ~X11FinderSelection() override;

    void query(Completion completion) override;

    /// The user did something else: a copy from now on does not belong to the pending query.
    /// Thread-safe.
    void userActed() { m_userActed = true; }

  private:
    class Loop;

    void start(Completion completion);

    Automation& m_automation;
    Executor& m_main;
    QDBusConnection m_session;
    std::function<void()> m_waitForRelease;
    std::function<void(std::uint8_t)> m_willPress;
    std::atomic<bool> m_userActed = false;
    std::unique_ptr<Loop> m_loop; ///< created by the first query
    std::thread m_thread;
};

} // namespace vexmoor
