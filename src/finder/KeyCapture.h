#pragma once

#include "EventTap.h"
#include "FinderSelection.h"

#include "base/Executor.h"
#include "integration/FileManagers.h"

#include <QDBusConnection>

#include <sys/types.h>

#include <functional>
#include <memory>
#include <optional>

namespace vexmoor {

class Automation;

/// What FinderHotkey needs of the session's window system, as one.
class KeyCapture {
  public:
    /// Called on a thread of the capture, apart from `main` and the automation.
    struct Parts {
        QDBusConnection session;
        Executor& main;
        Automation& automation;
        /// Whether the file manager's process binds the key itself.
        std::function<bool(const FileManager&, std::optional<pid_t>)> bindsKeyItself;
        std::function<void()> keyIsHeld;          ///< by another program
        std::function<void()> programIsInvisible; ///< the file manager reports no focus
    };

    /// For the session that the program runs in. Parts outlive it.
    static std::unique_ptr<KeyCapture> forSession(Parts parts);

    virtual ~KeyCapture() = default;

    /// False if the session lets no program see another's keys, as under Wayland.
    [[nodiscard]] virtual bool isPossible() const = 0;
    virtual EventTap& tap() = 0;
    virtual Workspace& workspace() = 0;
    virtual FocusedElement& focus() = 0;
    virtual FinderSelection& selection() = 0;
    /// Asks again who binds the key.
    virtual void refresh() = 0;
};

} // namespace vexmoor
