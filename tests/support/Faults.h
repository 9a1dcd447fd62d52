#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace vexmoor::test {

/// Makes one of the system calls that change or look at files fail. Programs that link it must be
/// linked with wrappedCalls (tests/support/Faults.cmake). One at a time; the calls of all threads
/// count.
class Faults {
  public:
    /// Whether the file systems can rename without replacing; where not, that is always EINVAL.
    enum class NoReplace { supported, missing };

    /// The call of that number, from 0, fails with the error; all others go through.
    Faults(int failingCall, int error, NoReplace noReplace = NoReplace::supported);

    /// Before the call of that number another program acts; then all calls go through.
    Faults(int call, std::function<void()> otherProgram,
           NoReplace noReplace = NoReplace::supported);
    ~Faults();
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;

    /// The name of the call that failed or was preceded; nullopt where there were fewer calls.
    [[nodiscard]] static std::optional<std::string> failed();

    /// What every file system says of the blocks that an item takes, as long as this lives.
    class Blocks {
      public:
        explicit Blocks(std::uint64_t blocks);
        ~Blocks();
        Blocks(const Blocks&) = delete;
        Blocks& operator=(const Blocks&) = delete;
    };

    /// How often our own code has called fdatasync so far.
    [[nodiscard]] static int syncs();
};

} // namespace vexmoor::test
