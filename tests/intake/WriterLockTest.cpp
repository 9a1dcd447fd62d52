#include "intake/WriterLock.h"

#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>

namespace vexmoor::test {

namespace {

TEST(WriterLock, HasOneHolderAndReportsItsRole) {
    const TemporaryDirectory folder;
    const Path file = folder / "data/lock";
    EXPECT_EQ(*WriterLock::holder(file), std::nullopt);
    for (const auto role : {WriterLock::Role::command, WriterLock::Role::desktop}) {
        const auto lock = WriterLock::tryTake(file, role);
        ASSERT_TRUE(lock.ok() && lock->has_value());
        EXPECT_EQ(*WriterLock::holder(file), role);
        EXPECT_FALSE(WriterLock::tryTake(file, role)->has_value());
        int asked = 0;
        const auto waited =
            WriterLock::take(file, WriterLock::Role::command, [&] { return ++asked == 2; });
        EXPECT_FALSE(waited->has_value());
        EXPECT_EQ(asked, role == WriterLock::Role::desktop ? 0 : 2)
            << "no process waits for the desktop application";
    }
    EXPECT_EQ(*WriterLock::holder(file), std::nullopt);
}

TEST(WriterLock, IsNotHeldByQueries) {
    const TemporaryDirectory folder;
    const Path file = folder.write("lock", "D");
    const FileDescriptor looking(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(::flock(looking.get(), LOCK_SH), 0);
    EXPECT_EQ(*WriterLock::holder(file), std::nullopt);
}

} // namespace

} // namespace vexmoor::test
