#include "disposal/TreeWalk.h"

#include "TreeFixture.h"

#include <algorithm>
#include <functional>
#include <map>

namespace vexmoor {

namespace {

using test::TreeTest;

/// Records what it visits.
class RecordingVisitor : public TreeVisitor {
  public:
    std::map<Path, int> entries;
    std::map<Path, int> folders;
    std::set<Path> leftTooEarly;
    std::map<Path, int> notEnteredErrors;
    std::size_t mostDescriptors = 0;
    std::function<void(const Path&)> onEntry = [](const Path&) {};
    std::function<Folder(const Path&)> onLeave = [](const Path&) { return Folder::left; };

    Entry visitEntry(const TreePlace& place, const char* name, TreeTally& tally) override {
        const auto status = fileStatus(place.descriptor, name);
        if (status && status->isFolder())
            return Entry::isFolder;
        ++tally.entries;
        const Path path = place.folder.pathOf(name);
        const std::lock_guard lock(m_mutex);
        ++entries[path];
        if (folders.contains(path.parent_path()))
            leftTooEarly.insert(path.parent_path());
        onEntry(path);
        return Entry::visited;
    }
    FileDescriptor openDenied(const TreePlace&, const char*) override { return {}; }
    void notEntered(const TreePlace& place, const char* name, int error, TreeTally&) override {
        const std::lock_guard lock(m_mutex);
        notEnteredErrors[place.folder.pathOf(name)] = error;
    }
    Folder leaveFolder(TreeFolder& folder, int, const TreePlace& parent, TreeTally&) override {
        const Path path = parent.folder.pathOf(folder.name);
        const std::lock_guard lock(m_mutex);
        ++folders[path];
        if (folders.contains(path.parent_path()))
            leftTooEarly.insert(path.parent_path());
        return onLeave(path);
    }

  private:
    std::mutex m_mutex;
};

class TreeWalkTest : public TreeTest {
  protected:
    TreeWalk::Outcome walk(TreeVisitor& visitor, WorkMeter* meter = nullptr) {
        const auto status = fileStatus(directory(), "tree");
        EXPECT_TRUE(status.ok());
        const auto outcome = TreeWalk(visitor, status->mountId, meter).run(directory(), "tree");
        EXPECT_TRUE(outcome.ok());
        return *outcome;
    }
    /// Expects each entry once, and each folder after its contents.
    void expectWholeTree(const RecordingVisitor& visitor) const {
        std::set<Path> seen{"tree"};
        for (const auto& [path, times] : visitor.entries) {
            EXPECT_EQ(times, 1) << path;
            seen.insert(path);
        }
        for (const auto& [path, times] : visitor.folders) {
            EXPECT_EQ(times, 1) << path;
            seen.insert(path);
        }
        EXPECT_TRUE(visitor.folders.contains("tree"));
        EXPECT_EQ(visitor.leftTooEarly, std::set<Path>());
        auto all = contents("tree");
        all.insert("tree");
        EXPECT_EQ(seen, all);
    }
};

std::size_t openDescriptors() {
    const auto all = std::filesystem::directory_iterator("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

} // namespace

// Shapes that the workers share in different ways: many folders, one folder with many batches,
// nested folders with many batches, and a deep comb that ascends by "..".
TEST_F(TreeWalkTest, VisitsEachEntryOnceAndFoldersAfterTheirContents) {
    const std::map<std::string, std::function<void()>> shapes = {
        {"wide", [&] { makeFolders("tree", 300, 4); }},
        {"flat", [&] { makeEmptyFiles("tree", 9000); }},
        {"nested",
         [&] {
             makeEmptyFiles("tree", 3000);
             makeEmptyFiles("tree/a", 3000);
             makeFolders("tree/a/b", 40, 3);
         }},
        {"a chain below very many",
         [&] {
             makeEmptyFiles("tree", 9000);
             Path at = "tree";
             for (int level = 0; level < 40; ++level) {
                 makeFolder(at /= "d");
                 makeFile(at / "file");
             }
         }},
        {"comb",
         [&] {
             Path at = "tree";
             for (int level = 0; level < 120; ++level, at /= "d") {
                 makeFolders(at, 2, 2);
                 makeFile(at / "file");
             }
         }},
    };
    for (const auto& [name, make] : shapes) {
        SCOPED_TRACE(name);
        make();
        for (int round = 0; round < 3; ++round) {
            RecordingVisitor visitor;
            WorkMeter meter;
            const auto outcome = walk(visitor, &meter);
            expectWholeTree(visitor);
            EXPECT_EQ(outcome.tally.entries, static_cast<std::int64_t>(visitor.entries.size()));
            EXPECT_EQ(meter.entries, outcome.tally.entries);
            EXPECT_FALSE(outcome.stopped);
        }
        std::filesystem::remove_all(path() / "tree");
    }
}

// Too few entries for the second worker, which would change the order.
TEST_F(TreeWalkTest, VisitsFilesInTheOrderOfTheirInodes) {
    makeEmptyFiles("tree", 300);
    std::vector<std::uint64_t> inodes;
    RecordingVisitor visitor;
    visitor.onEntry = [&](const Path& entry) {
        inodes.push_back(fileStatus(directory(), entry.c_str())->identity.inode);
    };
    walk(visitor);
    EXPECT_EQ(inodes.size(), 300U);
    EXPECT_TRUE(std::ranges::is_sorted(inodes));
}

TEST_F(TreeWalkTest, UsesFewDescriptorsAtAnyDepth) {
    Path at = "tree";
    for (int level = 0; level < 150; ++level, at /= "d")
        makeFolders(at, 2, 2);
    const std::size_t before = openDescriptors();
    std::size_t most = 0;
    RecordingVisitor visitor;
    visitor.onEntry = [&](const Path&) { most = std::max(most, openDescriptors() - before); };
    walk(visitor);
    expectWholeTree(visitor);
    EXPECT_GT(most, 20U);
    EXPECT_LT(most, 64U);
}

TEST_F(TreeWalkTest, ContinuesAfterAFolderIsMovedAway) {
    const auto makeSides = [&](const Path& at, const Path& inner, const char* file) {
        for (const Path& folder : {Path("older"), inner, Path("newer")})
            makeFolder(at / folder); // in any reading order, one of them follows the inner one
        makeFile(at / "older" / file);
        makeFile(at / "newer" / file);
    };
    makeSides("", "", "decoy"); // the target of ".." in the moved folder
    Path at = "tree";
    for (int level = 0; level < 60; ++level, at /= "d")
        makeSides(at, "d", "file");
    makeFile(at / "bottom");
    Path moved = "tree";
    for (int level = 0; level < 20; ++level)
        moved /= "d";
    RecordingVisitor visitor;
    visitor.onEntry = [&](const Path& entry) {
        EXPECT_NE(entry.filename(), "decoy");
        if (entry.filename() == "bottom")
            std::filesystem::rename(path() / moved, path() / "moved");
    };
    walk(visitor);
    for (Path above = moved.parent_path(); !above.empty(); above = above.parent_path()) {
        EXPECT_EQ(visitor.entries[above / "older/file"], 1);
        EXPECT_EQ(visitor.entries[above / "newer/file"], 1);
        EXPECT_EQ(visitor.folders[above], 1);
    }
}

// Files are visited while reading, folders are entered after their batch.
TEST_F(TreeWalkTest, DoesNotFollowALinkThatReplacedAFolder) {
    makeFolders("outside", 2, 2);
    makeFolders("tree/folder", 2, 2);
    makeFile("tree/file");
    std::filesystem::create_directory_symlink(path() / "outside", path() / "link");
    RecordingVisitor visitor;
    visitor.onEntry = [&](const Path& entry) {
        if (entry == "tree/file") {
            EXPECT_EQ(renameat2(directory(), "tree/folder", directory(), "link", RENAME_EXCHANGE),
                      0);
        }
    };
    walk(visitor);
    EXPECT_EQ(visitor.entries, (std::map<Path, int>{{"tree/file", 1}, {"tree/folder", 1}}));
    EXPECT_EQ(visitor.folders, (std::map<Path, int>{{"tree", 1}}));
}

TEST_F(TreeWalkTest, ReadsAFolderAgainOnTheVisitorsRequest) {
    makeFolders("tree", 2, 3);
    RecordingVisitor visitor;
    visitor.onLeave = [&](const Path& folder) {
        return folder == "tree/folder 1" && visitor.folders[folder] < 3
                   ? TreeVisitor::Folder::readAgain
                   : TreeVisitor::Folder::left;
    };
    walk(visitor);
    EXPECT_EQ(visitor.entries["tree/folder 0/0"], 1);
    EXPECT_EQ(visitor.entries["tree/folder 1/0"], 3);
    EXPECT_EQ(visitor.folders["tree"], 1);
}

TEST_F(TreeWalkTest, StopsBetweenEntriesWithoutLeavingFolders) {
    makeFolders("tree", 5, 50);
    WorkMeter meter;
    RecordingVisitor visitor;
    visitor.onEntry = [&](const Path&) { meter.stop = true; };
    EXPECT_TRUE(walk(visitor, &meter).stopped);
    EXPECT_EQ(visitor.entries.size(), 1U);
    EXPECT_TRUE(visitor.folders.empty());
}

} // namespace vexmoor
