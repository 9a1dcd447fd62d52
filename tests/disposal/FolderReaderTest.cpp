#include "TreeFixture.h"

#include "platform/FolderReader.h"
#include "platform/Processors.h"

#include <algorithm>

namespace vexmoor::test {

namespace {

using FolderReaderTest = TreeTest;

TEST_F(FolderReaderTest, TakesTheSecondHalfOfABatchWithoutFolders) {
    makeEmptyFiles("all", 100);
    makeFolder("all/folder");
    const FileDescriptor folder(
        ::open((path() / "all").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    FolderReader reader;
    ASSERT_TRUE(reader.read(folder.get()).ok());
    std::set<std::string> seen;
    const auto take = [&](std::size_t count) {
        for (const FolderEntry* entry = nullptr; count > 0 && (entry = reader.next()); --count)
            EXPECT_TRUE(seen.insert(entry->name).second) << entry->name;
    };
    take(21);
    ASSERT_EQ(reader.left(), 80U);
    const std::string half = reader.takeSecondHalf();
    const auto given = static_cast<std::size_t>(std::ranges::count(half, '\0'));
    EXPECT_EQ(given + reader.left(), 80U);
    EXPECT_GE(given, 39U) << "all except a folder";
    for (std::size_t at = 0; at < half.size(); at = half.find('\0', at) + 1)
        EXPECT_TRUE(seen.insert(half.c_str() + at).second) << half.c_str() + at;
    take(100);
    EXPECT_EQ(seen.size(), 101U);
}

TEST_F(FolderReaderTest, DetectsAnIdleProcessor) {
    inProcess([] {
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(static_cast<std::size_t>(sched_getcpu()), &one);
        ASSERT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
        EXPECT_FALSE(hasIdleProcessor());
    });
}

} // namespace

} // namespace vexmoor::test
