#pragma once

#include <functional>
#include <optional>
#include <string>

namespace vexmoor::test {

/// Makes one of the system calls that access files fail. Programs must be linked with wrappedCalls
/// (tests/support/Faults.cmake). One instance at a time; calls of all threads count.
class Faults {
  public:
    /// Whether file systems support renaming without replacing; otherwise it fails with EINVAL.
    enum class NoReplace { supported, missing };

    /// Makes the call with that number (from 0) fail with the error.
    Faults(int failingCall, int error, NoReplace noReplace = NoReplace::supported);

    /// Runs another program before the call with that number; no call fails.
    Faults(int call, std::function<void()> otherProgram,
           NoReplace noReplace = NoReplace::supported);
    ~Faults();
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;

    /// Returns the name of that call, or nullopt if there were fewer calls.
    [[nodiscard]] static std::optional<std::string> failed();

    /// Returns how often our own code has called fdatasync.
    [[nodiscard]] static int syncs();
};

} // namespace vexmoor::test
