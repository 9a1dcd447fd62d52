#include "disposal/TreeRemoval.h"

#include "disposal/DisposalError.h"
#include "disposal/TreeSize.h"
#include "TreeFixture.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <atomic>
#include <thread>

namespace vexmoor {

namespace {

using test::TreeTest;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class TreeRemovalTest : public TreeTest {
  protected:
    RemovalReport remove(const char* name, WorkMeter* meter = nullptr) const {
        return removeTree(directory(), name, meter);
    }
    void expectRemoved(const char* name, std::int64_t entries) const {
        const auto report = remove(name);
        EXPECT_EQ(report.removed, entries) << name;
        EXPECT_EQ(report.remaining, 0) << name;
        EXPECT_FALSE(report.stopped);
        EXPECT_THAT(report.failures, ElementsAre()) << name;
        EXPECT_FALSE(exists(name)) << name;
    }
    static Error failure(int number, const char* at) {
        return Error::fromErrno(number, number == EXDEV ? "enter the mount" : "remove", at);
    }
};

} // namespace

TEST_F(TreeRemovalTest, RemovesEveryKindOfEntry) {
    makeFolders("outside", 2, 2);
    makeFile("outside file");
    const auto outside = contents("outside");

    makeFile("file");
    makeFolder("empty");
    std::filesystem::create_directory_symlink("outside", path() / "link");
    std::filesystem::create_symlink("nowhere", path() / "dangling");
    for (const char* name : {"file", "empty", "link", "dangling"})
        expectRemoved(name, 1);

    makeFolders("tree", 30, 30);
    makeFile("tree/new\nline");
    makeFile("tree/broken \xff\xc3 utf-8");
    makeFolder("tree/broken \xfe/\n/-rf");
    std::filesystem::create_directory_symlink(path() / "outside", path() / "tree/link");
    std::filesystem::create_symlink(path() / "outside file", path() / "tree/folder 3/link");
    ASSERT_EQ(mkfifo((path() / "tree/pipe").c_str(), 0644), 0);
    expectRemoved("tree", 1 + 30 * 31 + 5 + 3);

    makeFolder("tree/flat");
    makeEmptyFiles("tree/flat", 9000);
    expectRemoved("tree", 9002);
    EXPECT_EQ(contents("outside"), outside);
    EXPECT_TRUE(exists("outside file"));
}

TEST_F(TreeRemovalTest, RejectsMissingEntriesAndInvalidNames) {
    makeFolder("folder");
    makeFile("folder/file");
    const auto missing = remove("missing");
    EXPECT_THAT(missing.failures, ElementsAre(failure(ENOENT, "missing")));
    EXPECT_EQ(missing.remaining, 0);
    for (const char* name : {"", ".", "..", "folder/file", "folder/", "/"}) {
        const auto report = remove(name);
        EXPECT_THAT(report.failures, ElementsAre(failure(EINVAL, name)));
        EXPECT_EQ(report.removed, 0);
    }
    EXPECT_TRUE(exists("folder/file"));
}

TEST_F(TreeRemovalTest, AddsPermissionsToOwnFolders) {
    giveToNobody();
    inProcess([&] {
        dropRights();
        for (const mode_t mode : {0000U, 0100U, 0300U, 0400U, 0500U, 0600U}) {
            makeFolders("tree/inner/deep", 2, 2);
            makeFolder("tree/inner/empty");
            for (const char* name : {"tree/inner/deep/folder 0", "tree/inner/deep",
                                     "tree/inner/empty", "tree/inner", "tree"})
                ASSERT_EQ(chmod((path() / name).c_str(), mode), 0) << name;
            SCOPED_TRACE(mode);
            expectRemoved("tree", 10);
        }
    });
}

TEST_F(TreeRemovalTest, ReportsForeignEntriesAndContinues) {
    if (geteuid() != 0)
        GTEST_SKIP() << "needs root to create files of another user";
    giveToNobody();
    makeFolders("tree/ours", 3, 3);
    makeFolder("tree/sticky/deep");
    for (int i = 0; i < 12; ++i)
        makeFile("tree/sticky/theirs " + std::to_string(i));
    makeFile("tree/sticky/ours");
    makeFolder("tree/locked/in it");
    makeFolder("tree/locked and empty");
    for (const char* name : {"tree", "tree/ours", "tree/sticky/ours", "tree/sticky/deep",
                             "tree/ours/folder 0", "tree/ours/folder 1", "tree/ours/folder 2"})
        giveToNobody(name);
    ASSERT_EQ(chmod((path() / "tree/sticky").c_str(), 01777), 0);
    ASSERT_EQ(chmod((path() / "tree/locked").c_str(), 0700), 0);
    ASSERT_EQ(chmod((path() / "tree/locked and empty").c_str(), 0700), 0);
    inProcess([&] {
        dropRights();
        const auto report = remove("tree");
        EXPECT_EQ(report.removed, 13 + 2 + 1);
        EXPECT_EQ(report.remaining, 12 + 1 + 1 + 1); // theirs, sticky, locked, tree
        EXPECT_EQ(report.failures.size(), RemovalReport::kMaxFailures);
        for (const Error& cause : report.failures) {
            const bool isLocked = cause.path == "tree/locked";
            EXPECT_EQ(cause.code.value(), isLocked ? EACCES : EPERM) << cause.path;
            EXPECT_TRUE(isLocked || cause.path.string().starts_with("tree/sticky/theirs "));
        }
    });
    EXPECT_EQ(contents("tree").size(), 12U + 1 + 2);
    EXPECT_FALSE(exists("tree/ours"));
}

TEST_F(TreeRemovalTest, KeepsTheContentsOfAnUnremovableFolder) {
    makeFolders("parent/tree", 2, 2);
    giveToNobody("parent");
    giveToNobody("parent/tree");
    const auto before = contents();
    ASSERT_EQ(chmod((path() / "parent").c_str(), 0555), 0);
    inProcess([&] {
        dropRights();
        const auto parent = openFolder(path() / "parent");
        const auto report = removeTree(parent->get(), "tree");
        EXPECT_THAT(report.failures, ElementsAre(failure(EACCES, "tree")));
        EXPECT_EQ(report.remaining, 1);
    });
    EXPECT_EQ(contents(), before);
    EXPECT_EQ(fileStatus(path() / "parent")->mode & 07777, 0555U);
    chmod((path() / "parent").c_str(), 0755);
}

TEST_F(TreeRemovalTest, ReportsAndKeepsMountsInside) {
    makeFolders("elsewhere", 1, 3);
    makeFolder("tree/mounted");
    makeFolder("tree/deep/bound");
    makeFile("tree/deep/file");
    makeFolder("top");
    const auto elsewhere = contents("elsewhere");
    inProcess([&] {
        useOwnMounts();
        if (IsSkipped() || HasFailure())
            return;
        mountMemory("tree/mounted");
        makeFile("tree/mounted/file");
        bind("elsewhere", "tree/deep/bound"); // same device, different mount
        bind("elsewhere", "top");
        const auto report = remove("tree");
        EXPECT_THAT(report.failures, UnorderedElementsAre(failure(EXDEV, "tree/mounted"),
                                                          failure(EXDEV, "tree/deep/bound")));
        EXPECT_EQ(report.removed, 1);
        EXPECT_EQ(report.remaining, 4);
        EXPECT_TRUE(exists("tree/mounted/file"));
        EXPECT_THAT(remove("top").failures, ElementsAre(failure(EXDEV, "top")));
    });
    EXPECT_EQ(contents("elsewhere"), elsewhere);
}

TEST_F(TreeRemovalTest, DoesNotFollowSwappedInLinks) {
    makeFolders("victim", 3, 5);
    const auto victim = contents("victim");
    for (int round = 0; round < 10; ++round) {
        makeFolders("tree", 20, 10);
        std::filesystem::create_directory_symlink(path() / "victim", path() / "link");
        std::atomic<bool> isSwapping{false};
        std::atomic<bool> isRemoved{false};
        std::thread swapper([&] { // a folder and a link swap names continuously
            const Path folder = path() / "tree/folder 7";
            const Path link = path() / "link";
            for (int i = 0; i < 200'000 && !isRemoved; ++i) {
                renameat2(AT_FDCWD, folder.c_str(), AT_FDCWD, link.c_str(), RENAME_EXCHANGE);
                isSwapping = true;
                isSwapping.notify_one();
            }
        });
        isSwapping.wait(false);
        const auto report = remove("tree");
        isRemoved = true;
        swapper.join();
        EXPECT_EQ(report.failures.empty(), !exists("tree"));
        EXPECT_EQ(report.remaining == 0, !exists("tree"));
        ASSERT_EQ(contents("victim"), victim);
        remove("tree");
        remove("link");
    }
}

TEST_F(TreeRemovalTest, MeasuresAndRemovesAVeryDeepChainWithFewDescriptors) {
    constexpr int kDepth = 20'000;
    {
        const FileDescriptor deepest = makeChain("chain", kDepth);
        const FileDescriptor file(openat(deepest.get(), "file", O_WRONLY | O_CREAT, 0644));
        ASSERT_EQ(write(file.get(), "x", 1), 1);
        ASSERT_EQ(mkdirat(deepest.get(), "side", 0755), 0);
    }
    inProcess([&] {
        const rlimit limit{128, 128};
        ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
        EXPECT_GT(treeSize(directory(), "chain"), 0);
        expectRemoved("chain", kDepth + 2);
    });
}

TEST_F(TreeRemovalTest, DoesNotRemoveTheTreesReplacement) {
    for (const bool isFolder : {false, true}) {
        makeFolders("tree", 100, 50);
        if (isFolder)
            makeFolder("other");
        else
            makeFile("other");
        WorkMeter meter;
        bool isReplaced = false;
        std::thread exchanging([&] {
            while (meter.removed < 100)
                std::this_thread::yield();
            isReplaced = renameat2(directory(), "tree", directory(), "other", RENAME_EXCHANGE) == 0;
        });
        const auto report = remove("tree", &meter);
        exchanging.join();
        if (isReplaced) { // otherwise the removal ended before
            EXPECT_THAT(report.failures,
                        ElementsAre(disposalError(DisposalError::replaced, "tree")));
            EXPECT_TRUE(exists("tree"));
        }
        std::filesystem::remove_all(path() / "tree");
        std::filesystem::remove_all(path() / "other");
    }
}

TEST_F(TreeRemovalTest, StopsOnTheMetersRequest) {
    WorkMeter meter;
    meter.stop = true;
    makeFile("file");
    EXPECT_TRUE(remove("file", &meter).stopped);
    EXPECT_TRUE(exists("file"));

    makeFolders("tree", 100, 50);
    const auto all = static_cast<std::int64_t>(contents("tree").size()) + 1;
    meter.stop = false;
    std::thread stopper([&] {
        while (meter.removed < 100)
            std::this_thread::yield();
        meter.stop = true;
    });
    const auto report = remove("tree", &meter);
    stopper.join();
    EXPECT_EQ(meter.removed, report.removed);
    EXPECT_THAT(report.failures, ElementsAre());
    EXPECT_EQ(report.stopped, exists("tree"));
    const auto left = exists("tree") ? static_cast<std::int64_t>(contents("tree").size()) + 1 : 0;
    EXPECT_EQ(report.removed + left, all);
}

} // namespace vexmoor
