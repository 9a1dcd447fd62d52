#pragma once

#include "EventTap.h"
#include "FinderSelection.h"

#include "base/Executor.h"
#include "dock/FrameTimer.h"
#include "intake/Ports.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace vexmoor {

/// Ctrl+Backspace in a file manager: captures the key press, reads the selection and reports it;
/// captures a Ctrl+Z that follows. Main thread, except that the tap calls the event handler on its
/// own thread. Must outlive the tasks that it posts.
class FinderHotkey : public UndoKey {
  public:
    struct Parts {
        EventTap& tap;
        Workspace& workspace;
        FocusedElement& focus;
        FinderSelection& selection;
        Executor& main;
        std::unique_ptr<FrameTimer> retry;
        std::function<bool()> isTrusted; ///< whether other programs' elements are accessible
        std::function<void()> beep;
    };

    static constexpr double kRetrySeconds = 2.0;

    explicit FinderHotkey(Parts parts);
    ~FinderHotkey() override;

    std::function<void(const Selection&)> onTrigger;
    std::function<void()> onAutomationDenied; ///< called at most once per object
    std::function<void()> onUndo;

    /// Captures the key now, or as soon as the tap can be created.
    void start();
    void stop();
    [[nodiscard]] bool isLive() const { return m_isLive; }

    /// Lets the next Ctrl+Z pass to the file manager.
    void disarm() override;
    [[nodiscard]] bool undoArmed() const;

    /// Reports that the file manager's menu command fed items. If the key triggered the command,
    /// the next Ctrl+Z is captured as after a captured key. Returns true if the last press was the
    /// key.
    bool fedByMenuCommand();

  private:
    bool install();
    Verdict handle(const InputEvent& event);
    Verdict handlePress(const InputEvent& event);
    Verdict trigger();
    Verdict undo(const InputEvent& event);
    void setArmed(bool armed);
    void querySelection();
    void finishQuery(const SelectionResult& result);
    void fail(SelectionError error);

    Parts m_parts;
    bool m_isLive = false;
    bool m_reportedDenial = false;

    mutable std::mutex m_mutex; ///< guards the members below
    bool m_undoArmed = false;
    bool m_keyPassed = false; ///< the last press was the key, passed to the file manager
    bool m_querying = false;
    std::optional<std::int64_t> m_swallowing;
};

} // namespace vexmoor
