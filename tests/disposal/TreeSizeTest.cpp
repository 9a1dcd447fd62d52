#include "disposal/TreeSize.h"

#include "TreeFixture.h"

#include <ftw.h>

namespace vexmoor {

namespace {

using test::TreeTest;

class TreeSizeTest : public TreeTest {
  protected:
    [[nodiscard]] std::int64_t sizeOf(const char* name) const {
        return treeSize(directory(), name);
    }
    /// Computes the same sum independently.
    [[nodiscard]] std::int64_t blocksOfAllButFolders(const Path& name) const {
        static std::int64_t s_sum;
        s_sum = 0;
        nftw((path() / name).c_str(),
             [](const char*, const struct stat* status, int, struct FTW*) {
                 s_sum += S_ISDIR(status->st_mode) ? 0 : status->st_blocks * 512;
                 return 0;
             },
             16, FTW_PHYS);
        return s_sum;
    }
};

} // namespace

TEST_F(TreeSizeTest, SumsTheBlocksOfAllEntriesExceptFolders) {
    makeFile("tree", 0);
    EXPECT_EQ(sizeOf("tree"), 0);
    std::filesystem::remove(path() / "tree");

    makeFile("outside", 100'000);
    makeFolders("tree", 30, 20);
    makeFile("tree/of some size", 70'001);
    makeFile("tree/.hidden", 5000);
    makeFile("tree/new\nline", 5000);
    makeFile("tree/broken \xff\xc3 utf-8", 5000);
    makeFile("tree/sparse", 0);
    std::filesystem::resize_file(path() / "tree/sparse", 1 << 30);
    std::filesystem::create_symlink(path() / "outside", path() / "tree/link");
    std::filesystem::create_symlink("/nowhere/" + std::string(300, 'x'), path() / "tree/long link");
    std::filesystem::create_directory_symlink("..", path() / "tree/loop");
    ASSERT_EQ(mkfifo((path() / "tree/pipe").c_str(), 0644), 0);

    EXPECT_GT(sizeOf("tree"), 70'001 + 600 * 4096);
    EXPECT_LT(sizeOf("tree"), 1 << 30);
    EXPECT_EQ(sizeOf("tree"), blocksOfAllButFolders("tree"));
    EXPECT_EQ(sizeOf("outside"), blocksOfAllButFolders("outside"));
}

TEST_F(TreeSizeTest, IsZeroForEmptyFoldersAndMissingEntries) {
    makeFolder("empty");
    makeFolders("folders", 20, 0);
    std::filesystem::create_directory_symlink("folders", path() / "link");
    for (const char* name : {"empty", "folders", "link", "missing"})
        EXPECT_EQ(sizeOf(name), 0) << name;
}

TEST_F(TreeSizeTest, CountsEachOccurrenceOfAHardLink) {
    makeFolder("tree/a");
    makeFolder("tree/b");
    makeFile("tree/a/file", 8192);
    const std::int64_t once = sizeOf("tree");
    ASSERT_GE(once, 8192);
    std::filesystem::create_hard_link(path() / "tree/a/file", path() / "tree/b/file");
    std::filesystem::create_hard_link(path() / "tree/a/file", path() / "tree/a/again");
    EXPECT_EQ(sizeOf("tree"), 3 * once);
}

TEST_F(TreeSizeTest, CountsUnreadableEntriesAsZero) {
    makeFolder("tree/locked");
    makeFile("tree/locked/file", 8192);
    makeFile("tree/unreadable", 4096);
    const std::int64_t readable = blocksOfAllButFolders("tree/unreadable");
    for (const char* name : {"tree", "tree/locked", "tree/unreadable"})
        giveToNobody(name);
    ASSERT_EQ(chmod((path() / "tree/unreadable").c_str(), 0), 0);
    ASSERT_EQ(chmod((path() / "tree/locked").c_str(), 0), 0);
    inProcess([&] {
        dropRights();
        EXPECT_EQ(sizeOf("tree"), readable); // a file's size needs no read permission
        chmod((path() / "tree").c_str(), 0);
        EXPECT_EQ(sizeOf("tree"), 0);
        chmod((path() / "tree").c_str(), 0755);
    });
    chmod((path() / "tree/locked").c_str(), 0755);
}

TEST_F(TreeSizeTest, SkipsMountsInside) {
    makeFolder("tree/mounted");
    makeFolder("elsewhere");
    makeFolder("tree/bound");
    makeFile("tree/file", 4096);
    makeFile("elsewhere/file", 4096);
    makeFile("tree/bound file", 4096);
    inProcess([&] {
        useOwnMounts();
        if (IsSkipped() || HasFailure())
            return;
        const std::int64_t own = blocksOfAllButFolders("tree/file");
        ASSERT_EQ(sizeOf("tree"), 2 * own);
        mountMemory("tree/mounted");
        makeFile("tree/mounted/file", 4096);
        bind("elsewhere", "tree/bound");
        bind("elsewhere/file", "tree/bound file");
        EXPECT_EQ(sizeOf("tree"), own);
        EXPECT_EQ(treeSize(AT_FDCWD, (path() / "tree/mounted").c_str()), 4096); // measured directly
    });
}

TEST_F(TreeSizeTest, CountsOnTheMeterAndStopsOnRequest) {
    makeFolders("tree", 10, 10);
    makeFile("file", 4096);
    WorkMeter meter;
    const std::int64_t tree = treeSize(directory(), "tree", &meter);
    EXPECT_EQ(meter.entries, 111);
    EXPECT_EQ(meter.bytes, tree);
    const std::int64_t file = treeSize(directory(), "file", &meter);
    EXPECT_EQ(meter.entries, 112);
    EXPECT_EQ(meter.bytes, tree + file);
    meter.stop = true;
    EXPECT_EQ(treeSize(directory(), "tree", &meter), 0);
}

} // namespace vexmoor
