#pragma once

#include "base/Path.h"
#include "cli/Outcome.h"
#include "cli/SessionBus.h"

#include <chrono>
#include <functional>
#include <optional>
#include <variant>

namespace vexmoor {

/// The desktop application as commands reach it (docs/dbus.md).
class RunningDesktop {
  public:
    enum class Start { never, ifNeeded };
    using Answer = std::variant<BusReply, Refusal>;

    /// How long it may take to be there after it has taken the lock, or to let go of the lock after
    /// it has left the bus.
    static constexpr std::chrono::milliseconds kPatience{15'000};

    explicit RunningDesktop(Path lock, std::chrono::milliseconds patience = kPatience,
                            bool showsProgress = true)
        : m_lock(std::move(lock)), m_patience(patience), m_showsProgress(showsProgress) {}

    /// Calls a method and waits for its answer, however long that takes; Ctrl-C ends the work
    /// between two items and the wait for it to be there. Nothing where it does not run (any more)
    /// and has not taken the call: then the command is to work itself.
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
