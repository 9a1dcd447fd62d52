#pragma once

#include "finder/EventTap.h"
#include "integration/FileManagers.h"

#include <sys/types.h>

#include <functional>
#include <memory>
#include <optional>
#include <thread>

namespace vexmoor {

/// Captures Ctrl+Backspace, and Ctrl+Z on request, while a file manager is active, by synchronous
/// passive grabs that are answered one by one; sees all other presses as raw events (XInput 2). A
/// connection and a thread of its own, on which the handler runs: no other thread can delay the
/// session's input. When the process ends, the server releases all keys.
class X11EventTap : public EventTap, public Workspace {
  public:
    /// All are called on the tap's thread.
    struct Parts {
        /// Whether this file manager's process binds the key itself, so that the tap leaves it
        /// alone.
        std::function<bool(const FileManager&, std::optional<pid_t>)> bindsKeyItself;
        /// Another program holds the key. Called at most once an installation.
        std::function<void()> keyIsHeld;
        /// Another window became active: with the process of its file manager; nullopt if it is
        /// none, or does not say its process.
        std::function<void(std::optional<pid_t>)> fileManagerActivated;
        /// The user pressed another key or a button.
        std::function<void()> userGoesOn;
    };

    explicit X11EventTap(Parts parts);
    ~X11EventTap() override;

    bool install(Handler handler) override;
    void enable() override {} // the server disables no grab
    void remove() override;
    void captureUndoKey(bool captures) override;
    std::optional<std::string> frontmostApplication() override;

    /// Asks again who binds the key. Any thread.
    void refresh();

    /// The next press of this X key is this program's own, not the user's. Any thread.
    void ignoreNext(std::uint8_t key);

    /// Returns when no captured press is being answered: keys that are synthesised before would go
    /// to the grab. Not while the server is grabbed. Any thread but the tap's.
    void waitForRelease();

  private:
    class Loop;
    class Orders;

    Parts m_parts;
    std::unique_ptr<Orders> m_orders;
    std::unique_ptr<Loop> m_loop; ///< while installed
    std::thread m_thread;
};

} // namespace vexmoor
