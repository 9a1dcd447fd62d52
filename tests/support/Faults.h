#pragma once

#include <optional>
#include <string>

namespace vexmoor::test {

/// Makes one of the system calls that change or look at files fail. Programs that link it must be
/// linked with wrappedCalls (tests/support/Faults.cmake). One at a time; the calls of all threads
/// count.
class Faults {
  public:
    /// The call of that number, from 0, fails with the error; all others go through.
    Faults(int failingCall, int error);
    ~Faults();
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;

    /// The name of the call that failed; nothing where there were fewer calls.
    [[nodiscard]] static std::optional<std::string> failed();
};

} // namespace vexmoor::test
