#include "RunningDesktop.h"

#include "cli/ExitStatus.h"
#include "cli/Interrupt.h"
#include "cli/ProgressLine.h"
#include "intake/WriterLock.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <iterator>

namespace vexmoor {

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr const char* kService = "org.vexmoor.Vexmoor";
constexpr const char* kPath = "/org/vexmoor/Vexmoor";
constexpr const char* kInterface = "org.vexmoor.Commands1";
constexpr const char* kBusErrors = "org.freedesktop.DBus.Error.";
constexpr timespec kPause{0, 50'000'000};
constexpr int kLooks = 20;

/// True if the error is one of the bus's own errors with these names.
bool isOneOf(const BusError& error, std::initializer_list<const char*> names) {
    return std::ranges::any_of(
        names, [&](const char* name) { return error.name == kBusErrors + std::string(name); });
}

/// True if no process owns the service's name, nor could one be started.
bool isAbsent(const BusError& error) {
    return isOneOf(error, {"ServiceUnknown", "NameHasNoOwner", "TimedOut"}) ||
           error.name.starts_with(std::string(kBusErrors) + "Spawn.");
}

/// True if the service's name is owned, but its object is not registered yet, or no more.
bool isNotReady(const BusError& error) {
    return isOneOf(error, {"UnknownObject", "UnknownInterface", "UnknownMethod"}) ||
           error.name == "org.vexmoor.Error.Ending";
}

Refusal refusalOf(const BusError& error) {
    if (error.name == "org.vexmoor.Error.Usage")
        return {kUsage, "usage", [&] { return text(error.message.c_str()); }};
    if (error.name == "org.vexmoor.Error.Refused")
        return {kRefused, "refused", [&] { return text(error.message.c_str()); }};
    if (error.name == "org.vexmoor.Error.ReportTooLong")
        return {kSomeFailed, "reportTooLong", [&] { return text(error.message.c_str()); }};
    if (isOneOf(error, {"NoReply", "Disconnected", "Timeout"}))
        return {kSomeFailed, "desktopEnded", [] {
                    return text("The desktop application ended without reporting the result. "
                                "See the history for what was done: vexmoor history.");
                }};
    return {kRefused, "desktopNotReached", [&] {
                return text("The desktop application can't be reached, so nothing was touched: %1",
                            {error.message});
            }};
}

Refusal noBus(const Error& error) {
    const bool isNamed = error.code != std::error_code(ENOMEDIUM, std::generic_category());
    return {kRefused, "noSessionBus", [&] {
                return isNamed
                           ? text("The desktop application is running, but the session bus that "
                                  "leads to it can't be reached, so nothing was touched: %1.",
                                  {error.message()})
                           : text("The desktop application is running, but the session bus that "
                                  "leads to it can't be reached, so nothing was touched: the "
                                  "environment names none.");
            }};
}

Refusal noAnswer() {
    return {kRefused, "desktopSilent", [] {
                return text("The desktop application is running, but does not answer. Nothing was "
                            "touched.");
            }};
}

/// A call whose work another process does. Copies its progress into the meter, and stops the work
/// if the meter is stopped.
class DistantWork {
  public:
    DistantWork(SessionBus& bus, WorkMeter& meter, bool isWatched)
        : m_bus(bus), m_meter(meter), m_isWatched(isWatched) {}

    std::variant<BusReply, BusError> carryOut(BusCall call) {
        return m_bus.send(std::move(call), SessionBus::kForEver, [this] { look(); });
    }

  private:
    static constexpr std::chrono::seconds kPatience{1};

    [[nodiscard]] BusCall call(const char* method) const {
        auto call = m_bus.call(kService, kPath, kInterface, method);
        call.startNothing();
        return call;
    }

    void look() {
        if (m_meter.stop && !std::exchange(m_isStopping, true))
            m_bus.sendOnly(call("Stop"));
        if (m_isWatched)
            m_isWatched = readProgress();
    }

    /// Returns false if the service does not report progress.
    bool readProgress() {
        auto answer = m_bus.send(call("Progress"), kPatience);
        auto* const reply = std::get_if<BusReply>(&answer);
        if (reply == nullptr)
            return false;
        const auto entries = reply->number();
        const auto bytes = reply->number();
        const auto removed = reply->number();
        if (!entries || !bytes || !removed)
            return false;
        m_meter.entries = static_cast<std::int64_t>(*entries);
        m_meter.bytes = static_cast<std::int64_t>(*bytes);
        m_meter.removed = static_cast<std::int64_t>(*removed);
        return true;
    }

    SessionBus& m_bus;
    WorkMeter& m_meter;
    bool m_isWatched;
    bool m_isStopping = false;
};

} // namespace

bool RunningDesktop::holdsLock() const {
    const auto holder = WriterLock::holder(m_lock);
    return holder && *holder == WriterLock::Role::desktop;
}

/// Checks the lock repeatedly: just after it is taken, it still names its previous holder.
bool RunningDesktop::keepsLock() const {
    for (int looks = 0; looks < kLooks; ++looks) {
        if (!holdsLock())
            return false;
        ::nanosleep(&kPause, nullptr);
    }
    return true;
}

std::optional<RunningDesktop::Answer>
RunningDesktop::call(const char* method, const std::function<void(BusCall&)>& addArguments,
                     Start start) const {
    const bool starts = start == Start::ifNeeded;
    WorkMeter meter;
    const Interrupt interrupt(meter, Interrupt::Work::ofOthers);
    auto bus = SessionBus::connect();
    if (!bus)
        return starts || !keepsLock() ? std::nullopt : std::optional<Answer>(noBus(bus.error()));
    const ProgressLine progress(meter, m_showsProgress);
    for (const auto end = SteadyClock::now() + m_patience;;) {
        auto call = bus->call(kService, kPath, kInterface, method);
        if (!starts)
            call.startNothing();
        addArguments(call);
        auto answer = DistantWork(*bus, meter, progress.isShown()).carryOut(std::move(call));
        if (auto* const reply = std::get_if<BusReply>(&answer))
            return Answer(std::move(*reply));
        const auto& error = std::get<BusError>(answer);
        if (!isAbsent(error) && !isNotReady(error))
            return refusalOf(error);
        if (starts ? isAbsent(error) : !holdsLock())
            return std::nullopt;
        if (meter.stop)
            return Refusal{kRefused, "interrupted", [] {
                               return text("Stopped while waiting for the desktop application. "
                                           "Nothing was touched.");
                           }};
        if (SteadyClock::now() > end)
            return starts ? std::nullopt : std::optional<Answer>(noAnswer());
        ::nanosleep(&kPause, nullptr);
    }
}

} // namespace vexmoor
