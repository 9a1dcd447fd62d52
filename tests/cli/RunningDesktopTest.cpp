#include "cli/RunningDesktop.h"

#include "cli/ExitStatus.h"
#include "intake/WriterLock.h"
#include "support/PrivateBus.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace vexmoor::test {
namespace {

using namespace std::chrono_literals;

/// A session bus on which no process owns the desktop application's name.
class RunningDesktopTest : public testing::Test {
  protected:
    RunningDesktopTest() { reach(m_bus.address()); }
    ~RunningDesktopTest() override { ::unsetenv("DBUS_SESSION_BUS_ADDRESS"); }

    static void reach(const std::string& address) {
        ::setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
    }

    void take(WriterLock::Role role) { m_lock = *WriterLock::tryTake(m_file, role); }

    [[nodiscard]] std::optional<RunningDesktop::Answer> call(RunningDesktop::Start start) const {
        return RunningDesktop(m_file, 120ms)
            .call(
                "Stop", [](BusCall&) {}, start);
    }

    PrivateBus m_bus;
    TemporaryDirectory m_folder;
    Path m_file = m_folder / "lock";
    std::optional<WriterLock> m_lock;
};

TEST_F(RunningDesktopTest, IsWaitedForWhileItHoldsTheLock) {
    take(WriterLock::Role::desktop);
    const auto answer = call(RunningDesktop::Start::never);
    ASSERT_TRUE(answer);
    EXPECT_EQ(std::get<Refusal>(*answer).status, kRefused);
    EXPECT_EQ(std::get<Refusal>(*answer).sentence,
              "The desktop application is running, but does not answer. Nothing was touched.");
}

TEST_F(RunningDesktopTest, IsNotWaitedForIfItDoesNotRun) {
    using Role = WriterLock::Role;
    using Start = RunningDesktop::Start;
    EXPECT_FALSE(call(Start::never));
    EXPECT_FALSE(call(Start::ifNeeded)) << "the bus has no service file with that name";
    take(Role::command);
    EXPECT_FALSE(call(Start::never));
    reach("unix:path=/nowhere");
    EXPECT_FALSE(call(Start::never));
    EXPECT_FALSE(call(Start::ifNeeded));
    m_lock.reset();
    EXPECT_FALSE(call(Start::never)) << "a previous holder of the lock does not count";
}

} // namespace
} // namespace vexmoor::test
