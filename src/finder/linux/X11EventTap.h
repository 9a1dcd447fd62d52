#pragma once

#include "finder/EventTap.h"
#include "integration/FileManagers.h"

#include <sys/types.h>

#include <functional>
#include <memory>
#include <optional>
#include <thread>

namespace vexmoor {

/// Captures Ctrl+Backspace, and Ctrl+Z on request, while a file manager is active. Uses synchronous
/// passive grabs that are replied to one by one; all other presses arrive as raw events (XInput 2).
/// Has its own connection and thread, on which the handler runs, so that no other thread delays the
/// session's input. The server releases the grabs when the process ends.
class X11EventTap : public EventTap, public Workspace {
  public:
    /// All callbacks run on the tap's thread.
    struct Parts {
        /// True if this file manager's process binds the key itself, so that the tap must not
        /// capture it.
        std::function<bool(const FileManager&, std::optional<pid_t>)> bindsKeyItself;
        /// Another program has grabbed the key. Called at most once per installation.
        std::function<void()> keyIsHeld;
        /// Another window became active. The argument is its file manager's process; nullopt if it
        /// is no file manager or the process is unknown.
        std::function<void(std::optional<pid_t>)> fileManagerActivated;
        /// The user pressed another key or a button.
        std::function<void()> userActed;
    };

    explicit X11EventTap(Parts parts);
    ~X11EventTap() override;

    bool install(Handler handler) override;
    void enable() override {} // X never disables a grab
    void remove() override;
    void captureUndoKey(bool captures) override;
    std::optional<std::string> frontmostApplication() override;

    /// Determines again which file managers bind the key themselves. Thread-safe.
    void refresh();

    /// The next press of this X key code is synthesised by this program, not by the user.
    /// Thread-safe.
    void ignoreNext(std::uint8_t key);

    /// Blocks while a captured press is being handled: keys synthesised then would go to the grab.
    /// Must not be called during a server grab or on the tap's thread.
    void waitForRelease();

  private:
    class Loop;
    class Requests;

    Parts m_parts;
    std::unique_ptr<Requests> m_requests;
    std::unique_ptr<Loop> m_loop; ///< while installed
    std::thread m_thread;
};

} // namespace vexmoor
