#pragma once

#include <functional>
#include <string>

namespace vexmoor {

/// What the desktop's notification centre is asked for (port).
class NotificationPort {
  public:
    struct Notification {
        std::string identifier; ///< a later one with the same replaces it
        std::string title;
        std::string body;
        bool operator==(const Notification&) const = default;
    };

    virtual ~NotificationPort() = default;

    /// Asks for leave to show notifications with sound and calls `completion` once, now or later,
    /// on whatever thread; not after the port is gone.
    virtual void requestAuthorization(std::function<void(bool granted)> completion) = 0;

    /// Shows it at once, with the default sound. May be called in the completion, on its thread.
    /// What becomes of it is not told.
    virtual void post(const Notification& notification) = 0;
};

} // namespace vexmoor
