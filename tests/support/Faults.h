#pragma once

#include <cstdint>
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

    /// Makes every file system report this number of blocks for each item, during its lifetime.
    class Blocks {
      public:
        explicit Blocks(std::uint64_t blocks);
        ~Blocks();
        Blocks(const Blocks&) = delete;
        Blocks& operator=(const Blocks&) = delete;
    };

    /// Returns how often our own code has called fdatasync.
    [[nodiscard]] static int syncs();
};

} // namespace vexmoor::test
