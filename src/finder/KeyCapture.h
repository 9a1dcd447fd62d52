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

/// Bundles what FinderHotkey needs from the session's window system.
class KeyCapture {
  public:
    /// The callbacks run on threads of the capture.
    struct Parts {
        QDBusConnection session;
        Executor& main;
        Automation& automation;
        /// True if the file manager's process binds the key itself.
        std::function<bool(const FileManager&, std::optional<pid_t>)> bindsKeyItself;
        std::function<void()> keyIsHeld;          ///< another program has grabbed the key
        std::function<void()> programIsInvisible; ///< the file manager does not report its focus
    };

    /// Returns the capture for the current session. The parts must outlive it.
    static std::unique_ptr<KeyCapture> forSession(Parts parts);

    virtual ~KeyCapture() = default;

    /// False if programs cannot capture other programs' keys in this session, as under Wayland.
    [[nodiscard]] virtual bool isPossible() const = 0;
    virtual EventTap& tap() = 0;
    virtual Workspace& workspace() = 0;
    virtual FocusedElement& focus() = 0;
    virtual FinderSelection& selection() = 0;
    /// Determines again which file managers bind the key themselves.
    virtual void refresh() = 0;
};

} // namespace vexmoor
