#pragma once

#include <functional>
#include <string>

namespace vexmoor {

/// Shows desktop notifications (port).
class NotificationPort {
  public:
    struct Notification {
        std::string identifier; ///< a later notification with the same identifier replaces it
        std::string title;
        std::string body;
        bool operator==(const Notification&) const = default;
    };

    virtual ~NotificationPort() = default;

    /// Requests permission for notifications with sound. Calls `completion` once, now or later, on
    /// any thread, but not after the port's destruction.
    virtual void requestAuthorization(std::function<void(bool granted)> completion) = 0;

    /// Shows a notification immediately, with the default sound. The completion may call this on
    /// its own thread. Errors are not reported.
    virtual void post(const Notification& notification) = 0;
};

} // namespace vexmoor
