#include "BinFixture.h"

namespace vexmoor::test {

namespace {

/// Another program changes the Bin between a check and the operation.
class BinRaceTest : public BinTest {
  protected:
    struct Swap {
        const char* what;
        std::function<void()> act;
        std::optional<std::string> inBin; ///< the Bin's content under the name afterwards
        DisposalError error;
        bool isInFuture = false; ///< of the info file's time
    };

    BinRaceTest() { fresh("item"); }

    void fresh(const std::string& bytes) {
        write("docs/a.txt", bytes);
        place = bin(path() / "docs/a.txt");
        EXPECT_EQ(place, binPath() / "files/a.txt");
    }
    void removeFromBin() const {
        std::filesystem::remove(place);
        std::filesystem::remove(infoOf(place));
    }
    /// Replaces by rename, as editors do.
    void replace(const Path& file, const std::string& bytes) const {
        write("new", bytes);
        std::filesystem::rename(path() / "new", file);
    }
    [[nodiscard]] TrashDirectory openBin() const {
        return std::move(TrashDirectory::openHome(binPath())).value();
    }
    [[nodiscard]] bool isLeavingEmpty() const {
        return std::filesystem::is_empty(binPath() / "vexmoor-leaving/files") &&
               std::filesystem::is_empty(binPath() / "vexmoor-leaving/info");
    }

    Path place;
    const Path original = path() / "docs/a.txt";
    std::filesystem::file_time_type written; ///< time of the info file
};

TEST_F(BinRaceTest, DoesNotRemoveReplacedItemsFromTheBin) {
    const Swap swaps[] = {
        {"another item under the same info file", [&] { replace(place, "theirs, longer"); },
         "theirs, longer", DisposalError::replaced},
        {"the Bin emptied and used again",
         [&] {
             removeFromBin();
             write("other/a.txt", "theirs");
             EXPECT_EQ(bin(path() / "other/a.txt"), place);
         },
         "theirs", DisposalError::replaced},
        {"the info file of another item",
         [&] {
             std::ofstream(infoOf(place)) << TrashInfo{path() / "b", {}}.toText();
         },
         "item", DisposalError::replaced},
        {"the info file of another item, as long as ours",
         [&] {
             std::ofstream(infoOf(place)) << TrashInfo{path() / "docs/b.txt", {}}.toText();
         },
         "item", DisposalError::replaced},
        {"the same, at a time that has not been yet",
         [&] {
             std::ofstream(infoOf(place)) << TrashInfo{path() / "docs/b.txt", {}}.toText();
             std::filesystem::last_write_time(infoOf(place), written);
         },
         "item", DisposalError::replaced, true},
        {"the Bin emptied", [&] { removeFromBin(); }, std::nullopt, DisposalError::goneFromBin},
    };
    for (const auto& [what, act, inBin, error, isInFuture] : swaps)
        for (const bool erasing : {false, true}) {
            SCOPED_TRACE(what);
            std::string info;
            std::ofstream(infoOf(place)) << TrashInfo{original, {}}.toText();
            age(infoOf(place), std::chrono::hours(isInFuture ? -1 : 1));
            written = std::filesystem::last_write_time(infoOf(place));
            const auto swap = [&, &swapNow = act](const FileStatus&, const Path&) {
                swapNow();
                info = read(infoOf(place));
                return Result<void>();
            };
            const auto code = erasing ? erase(place, BinRecord{original}, swap).error().code
                                      : putBack(place, BinRecord{original}, swap).error().code;
            EXPECT_EQ(code, make_error_code(error));
            EXPECT_EQ(fileStatus(place).ok(), inBin.has_value());
            EXPECT_EQ(read(place), inBin.value_or(""));
            EXPECT_EQ(read(infoOf(place)), info);
            EXPECT_FALSE(fileStatus(original).ok());
            EXPECT_TRUE(isLeavingEmpty());
            removeFromBin();
            fresh("item");
        }
}

TEST_F(BinRaceTest, KeepsTheInfoFileOfAnItemThatTookTheName) {
    for (const bool erasing : {false, true}) {
        auto bin = openBin();
        const auto found = bin.find("a.txt", {original});
        ASSERT_TRUE(found.ok());
        ASSERT_TRUE(bin.takeOut(*found).ok());
        std::filesystem::remove(infoOf(place));
        write("other/a.txt", "theirs");
        EXPECT_EQ(this->bin(path() / "other/a.txt"), place);
        const auto theirs = read(infoOf(place));
        EXPECT_TRUE((erasing ? bin.erase(*found, nullptr) : bin.removeInfo(*found)).ok());
        EXPECT_EQ(read(infoOf(place)), theirs);
        EXPECT_EQ(read(place), "theirs");
        if (!erasing) {
            ASSERT_TRUE(bin.giveBack(*found).ok());
            EXPECT_EQ(read(binPath() / "files/a.2.txt"), "item");
            EXPECT_EQ(read(infoOf(binPath() / "files/a.2.txt")), *found->infoText);
        }
        removeFromBin();
        fresh("item");
    }
    EXPECT_TRUE(isLeavingEmpty());
}

TEST_F(BinRaceTest, RestoresItemsLeftByAKill) {
    for (const bool isNameTaken : {false, true}) {
        {
            auto bin = openBin();
            const auto found = bin.find("a.txt", {original});
            ASSERT_TRUE(found.ok());
            ASSERT_TRUE(bin.takeOut(*found).ok());
        }
        EXPECT_FALSE(fileStatus(place).ok());
        if (isNameTaken)
            write(".local/share/Trash/files/a.txt", "theirs");
        Disposer disposer(directories(), nullptr);
        EXPECT_TRUE(disposer.returnLeaving(place).value());
        EXPECT_FALSE(disposer.returnLeaving(place).value());
        EXPECT_TRUE(isLeavingEmpty());
        const Path back = isNameTaken ? binPath() / "files/a.2.txt" : place;
        EXPECT_TRUE(putBack(back, original).ok());
        EXPECT_EQ(read(original), "item");
        removeFromBin();
        fresh("item");
    }
}

TEST_F(BinRaceTest, RecordsTheItemThatWasActuallyMoved) {
    struct Case {
        std::function<void()> act;
        std::int64_t size;
        bool isFolder;
    };
    const Path item = path() / "saved";
    const Case cases[] = {
        {[] {}, 3, false},
        {[&] { replace(item, std::string(9000, 'n')); }, 9000, false},
        {[&] {
             std::filesystem::remove(item);
             write("saved/inside", std::string(9000, 'n'));
         },
         -1, true},
    };
    for (const auto& [act, size, isFolder] : cases) {
        write("saved", "old");
        const auto disposed = dispose(item, DisposeMode::bin, [&, &actNow = act](const Path&) {
            actNow();
            return Result<void>();
        });
        ASSERT_TRUE(disposed.ok() && disposed->binned);
        const Path& binned = disposed->binned->place;
        EXPECT_EQ(disposed->isFolder, isFolder);
        EXPECT_EQ(disposed->binned->facts, factsOf(binned));
        EXPECT_EQ(disposed->binned->facts.size, size);
        EXPECT_EQ(disposed->bytes,
                  fileStatus(isFolder ? binned / "inside" : binned)->allocatedBytes);
        EXPECT_TRUE(putBack(binned, BinRecord{item, {}, disposed->binned->facts}).ok());
        std::filesystem::remove_all(item);
    }
}

} // namespace

} // namespace vexmoor::test
