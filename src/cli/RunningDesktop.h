#pragma once

#include "base/Path.h"
#include "cli/Outcome.h"
#include "cli/SessionBus.h"

#include <chrono>
#include <functional>
#include <optional>
#include <variant>

namespace vexmoor {

/// The client of the desktop application's D-Bus service (docs/dbus.md).
class RunningDesktop {
  public:
    enum class Start { never, ifNeeded };
    using Answer = std::variant<BusReply, Refusal>;

    /// Timeout for the service to appear after the lock is taken, and for the lock to be released
    /// after the service has left the bus.
    static constexpr std::chrono::milliseconds kPatience{15'000};

    explicit RunningDesktop(Path lock, std::chrono::milliseconds patience = kPatience,
                            bool showsProgress = true)
        : m_lock(std::move(lock)), m_patience(patience), m_showsProgress(showsProgress) {}

    /// Calls a method and waits for the reply without a timeout. Ctrl-C stops the work between two
    /// items, and the wait for the service. Returns nullopt if the desktop application does not run
    /// and has not received the call; the caller then does the work itself.
    [[nodiscard]] std::optional<Answer> call(const char* method,
                                             const std::function<void(BusCall&)>& addArguments,
                                             Start start = Start::never) const;

  private:
    [[nodiscard]] bool holdsLock() const;
    [[nodiscard]] bool keepsLock() const;

    Path m_lock;
    std::chrono::milliseconds m_patience;
    bool m_showsProgress;
};

} // namespace vexmoor
