#include "IntakeFixture.h"

#include "intake/BinnedItems.h"
#include "support/BackgroundProgram.h"
#include "support/DeadVolume.h"
#include "support/RawDatabase.h"

#include <sys/stat.h>

#include <fstream>
#include <functional>

namespace vexmoor::test {

namespace {

/// Journals of a process that died after the work was done but before the batch was recorded.
class RecoveryTest : public IntakeTest {
  protected:
    void feedAndDie(const std::vector<Path>& items) {
        program->intake.consume(items, false);
        while (program->work.runOne()) {
        }
        start();
    }

    /// Returns an entry for the item at the path, with the path in the Bin that it gets or leaves.
    [[nodiscard]] JournalEntry entryFor(const Path& item, const Path& place) const {
        JournalEntry entry;
        entry.sacrifice.id = Uuid::generate();
        entry.sacrifice.name = item.filename();
        entry.sacrifice.date = clock.now;
        entry.sacrifice.original = item;
        entry.sacrifice.trashed = place;
        entry.inode = identityAt(item).inode;
        return entry;
    }

    /// Writes intents like a process that dies immediately afterwards.
    void noteIntents(JournalKind kind, const std::vector<JournalEntry>& entries,
                     DisposeMode mode = DisposeMode::bin) const {
        const auto writer =
            program->journal.begin(kind, mode, Settlement(*program->defaults).start());
        ASSERT_TRUE(writer);
        for (const auto& entry : entries)
            (*writer)->intend(entry);
        ASSERT_TRUE((*writer)->sync());
    }
};

TEST_F(RecoveryTest, RecordsAnInterruptedBatchOnce) {
    feed(make({"before"}));
    const auto items = make({"a", "b"});
    feedAndDie(items);
    EXPECT_EQ(program->recovery.disposed, 2);
    EXPECT_EQ(program->ledger.count.get(), 3);
    EXPECT_EQ(program->progression.progress().items, 3);
    start();
    EXPECT_EQ(program->recovery.disposed, 0);
    EXPECT_EQ(program->ledger.count.get(), 3);
    program->intake.restore(recent());
    settle();
    for (const auto& item : items)
        EXPECT_TRUE(exists(item)) << item;
}

TEST_F(RecoveryTest, RecordsInterruptedDissolvesPutBacksAndDeletions) {
    feed(make({"a", "b"}));
    program->intake.restore({recent()[0]});
    while (program->work.runOne()) {
    }
    start();
    EXPECT_EQ(program->recovery.putBack, 1);
    EXPECT_TRUE(recent()[0].restored);
    program->intake.deleteImmediately({recent()[1]});
    while (program->work.runOne()) {
    }
    start();
    EXPECT_EQ(program->recovery.deleted, 1);
    EXPECT_TRUE(recent()[1].deleted);
    program->settings.mode.set(DisposeMode::dissolve);
    feedAndDie(make({"c"}));
    EXPECT_EQ(program->recovery.disposed, 1);
    EXPECT_EQ(recent()[0].name, "c");
    EXPECT_FALSE(recent()[0].canRestore());
    EXPECT_EQ(program->progression.progress().dissolved, 1);
    EXPECT_NE(contents(directories().ownData() / "journal/current").find("\"fileSystem\":\""),
              std::string::npos);
}

TEST_F(RecoveryTest, ChecksTheDiskForIntentsWithoutAnOutcome) {
    const auto items = make({"moved", "not moved", "never tried"});
    const Path bin = directories().dataHome / "Trash";
    std::vector<JournalEntry> entries;
    for (const auto& item : items)
        entries.push_back(entryFor(item, bin / "files" / item.filename()));
    noteIntents(JournalKind::feed, entries);
    // As if interrupted at the second item: the info file is written, nothing is moved.
    for (const char* const name : {"moved", "not moved"})
        home.write(Path(".local/share/Trash/info") / (std::string(name) + ".trashinfo"),
                   TrashInfo{home / name, clock.now}.toText());
    std::filesystem::create_directories(bin / "files");
    std::filesystem::rename(items[0], bin / "files/moved");
    start();
    EXPECT_EQ(program->recovery.disposed, 1);
    ASSERT_EQ(recent().size(), 1U);
    EXPECT_EQ(recent()[0].id, entries[0].sacrifice.id);
    EXPECT_TRUE(exists(items[1]));
    EXPECT_FALSE(exists(bin / "info/not moved.trashinfo"));
    EXPECT_TRUE(exists(bin / "info/moved.trashinfo"));
    program->intake.restore(program->binnedItems.lastBatch());
    settle();
    EXPECT_EQ(contents(items[0]), "moved");
}

TEST_F(RecoveryTest, KeepsItemsOnAMissingVolumeUndecided) {
    using Kind = JournalKind;
    for (const auto kind : {Kind::feed, Kind::putBack, Kind::erase})
        for (const bool happened : {true, false}) {
            SCOPED_TRACE(static_cast<int>(kind) * 10 + (happened ? 1 : 0));
            const Path original = fedToVolume("a");
            JournalEntry entry;
            entry.sacrifice = recent()[0];
            const Path place = *entry.sacrifice.trashed;
            entry.inode = fileStatus(place)->identity.inode;
            if (kind == Kind::feed)
                entry.sacrifice.id = Uuid::generate(); // not in the ledger yet
            if (kind == Kind::putBack)
                entry.destination = original;
            noteIntents(kind, {entry});
            if (happened ? kind != Kind::feed : kind == Kind::feed)
                std::filesystem::rename(place, kind == Kind::erase ? home / "gone" : original);
            const auto count = program->ledger.count.get();

            std::filesystem::rename(home / "usb", home / "unplugged");
            start();
            ASSERT_EQ(program->recovery.problems.size(), 1U);
            EXPECT_EQ(describe(program->recovery.problems[0]),
                      "a is in the Bin of a volume that is not available.");
            feed(make({"another batch"}));
            start();
            EXPECT_TRUE(program->recovery.problems.empty()) << "reported once";
            EXPECT_TRUE(recent()[1].canRestore());
            EXPECT_EQ(program->ledger.count.get(), count + 1);
            EXPECT_TRUE(needsRecovery());

            std::filesystem::rename(home / "unplugged", home / "usb");
            for (int starts = 0; starts < 2; ++starts) {
                start();
                EXPECT_FALSE(needsRecovery());
                const bool isRecorded = happened && kind == Kind::feed;
                EXPECT_EQ(program->ledger.count.get(), count + (isRecorded ? 2 : 1));
                const auto& item = recent()[isRecorded ? 0 : 1];
                EXPECT_EQ(item.restored.has_value(), happened && kind == Kind::putBack);
                EXPECT_EQ(item.deleted.has_value(), happened && kind == Kind::erase);
                EXPECT_EQ(item.id == entry.sacrifice.id, isRecorded || kind != Kind::feed);
            }
            std::filesystem::remove_all(home / "usb");
        }
}

TEST_F(RecoveryTest, DoesNotWaitForAHangingVolume) {
    const auto near = feed(make({"near"})).done;
    const Path original = fedToVolume("away");
    const auto away = recent()[0];
    auto entry = entryFor(home / "usb/other", Path(*away.trashed).parent_path() / "other");
    DeadVolume volume(home / "usb");
    if (!volume.mount())
        GTEST_SKIP() << "no volume can be mounted that does not answer";
    const BinnedItems hasty(program->ledger, program->defaults->records(), {});
    EXPECT_TRUE(hasty.hasAny({away})) << "not known yet";
    EXPECT_EQ(hasty.lastBatch().at(0).id, away.id);
    EXPECT_TRUE(eventually([&] { return !hasty.hasAny({away}); }));
    EXPECT_EQ(hasty.lastBatch().at(0).id, near[0].id);
    for (const bool hangs : {true, false}) {
        SCOPED_TRACE(hangs ? "it hangs" : "its program is gone");
        if (!hangs)
            volume.end();
        ASSERT_EQ(program->binnedItems.lastBatch().size(), 1U);
        EXPECT_EQ(program->binnedItems.lastBatch()[0].id, near[0].id);
        EXPECT_EQ(program->binnedItems.newest(5).size(), 1U);
        EXPECT_FALSE(program->binnedItems.hasAny({away}));
        EXPECT_EQ(program->binnedItems.named({"away"}).items.size(), 1U);
        for (const auto act : {&Intake::restore, &Intake::deleteImmediately}) {
            (program->intake.*act)({away}, {}, {});
            settle();
            EXPECT_TRUE(recent()[0].canRestore());
            EXPECT_FALSE(recent()[0].lost);
        }
        noteIntents(JournalKind::feed, {entry});
        start();
        EXPECT_TRUE(needsRecovery()) << "the item is waiting";
        EXPECT_EQ(program->ledger.count.get(), 2);
    }
}

TEST_F(RecoveryTest, PutsBackTheWholeLastBatchAfterARestartAtAnySize) {
    feed(make(90));
    feed(make({"newer"}));
    start();
    const BinnedItems& binned = program->binnedItems;
    EXPECT_EQ(binned.lastBatch().size(), 1U);
    EXPECT_EQ(binned.newest(60).size(), 60U);
    ASSERT_EQ(binned.named({"item 3"}).items.size(), 1U);
    program->intake.restore(binned.lastBatch());
    settle();
    auto batch = binned.lastBatch();
    EXPECT_EQ(batch.size(), 90U);
    program->intake.restore(batch);
    settle();
    for (int i = 0; i < 90; ++i)
        EXPECT_TRUE(exists(home / ("item " + std::to_string(i)))) << i;
    EXPECT_TRUE(binned.lastBatch().empty());
    EXPECT_TRUE(binned.named({"item 3"}).items.empty());
}

TEST_F(RecoveryTest, RewritesInfoFilesEmptiedByAPowerCut) {
    const auto items = make({"a", "b", "c"});
    feed(items);
    const auto infoOf = [&](const char* name) {
        return directories().dataHome / "Trash/info" / (std::string(name) + ".trashinfo");
    };
    const auto whole = contents(infoOf("a"));
    for (const char* const name : {"a", "c"})
        std::filesystem::resize_file(infoOf(name), 0);
    EXPECT_TRUE(needsRecovery());
    start();
    EXPECT_EQ(contents(infoOf("a")), whole);
    EXPECT_NE(contents(infoOf("c")), "");
    EXPECT_FALSE(needsRecovery());
}

TEST_F(RecoveryTest, RewritesInfoFilesOfAVolumeWhenABatchUsesItsBin) {
    for (const char* const name : {"a", "b", "c", "d"})
        (void)fedToVolume(name);
    const auto items = recent();
    const auto infoOf = [&](const Sacrifice& item) {
        return Path(*item.trashed).parent_path().parent_path() / "info" / infoName(item.name);
    };
    const auto whole = contents(infoOf(items[1]));
    for (const auto& item : {items[1], items[3]})
        std::filesystem::resize_file(infoOf(item), 0);
    start();
    EXPECT_EQ(contents(infoOf(items[1])), "") << "the volume may be missing";
    program->intake.restore({items[0]});
    settle();
    EXPECT_EQ(contents(infoOf(items[1])), whole);
    EXPECT_NE(contents(infoOf(items[3])), "");
    EXPECT_EQ(program->intake.batches(), 0U);
}

TEST_F(RecoveryTest, PutsBackBatchByBatchAtAnyAge) {
    constexpr int kBatches = 60;
    for (int i = 0; i < kBatches; ++i)
        feed(make({"a " + std::to_string(i), "b " + std::to_string(i)}));
    for (int i = kBatches; i-- > 0;) {
        start();
        EXPECT_TRUE(program->binnedItems.hasAny());
        const auto batch = program->binnedItems.lastBatch();
        ASSERT_EQ(batch.size(), 2U) << i;
        EXPECT_EQ(batch[0].name, "b " + std::to_string(i));
        program->intake.restore(batch);
        settle();
    }
    EXPECT_FALSE(program->binnedItems.hasAny());
    EXPECT_TRUE(program->binnedItems.all().empty());
    EXPECT_TRUE(exists(home / "a 0"));
}

TEST_F(RecoveryTest, RecoversAJournalInterruptedBeforeItsFirstIntent) {
    for (const char* text : {"", "{\"journal\":1,\"ki"}) {
        program.reset();
        home.write(".local/share/vexmoor/journal/7.open", text);
        start();
        EXPECT_TRUE(program->recovery.problems.empty()) << text;
        EXPECT_FALSE(needsRecovery()) << text;
    }
    EXPECT_EQ(program->ledger.count.get(), 0);
}

TEST_F(RecoveryTest, KeepsTheJournalOfANewerVersion) {
    program.reset();
    const Path open =
        home.write(".local/share/vexmoor/journal/7.open", "{\"journal\":3,\"kind\":\"new\"}\n");
    for (int starts = 0; starts < 2; ++starts) {
        start();
        EXPECT_EQ(program->recovery.problems.size(), 1U);
        EXPECT_TRUE(exists(open));
    }
    feed(make({"a"}));
    EXPECT_EQ(program->ledger.count.get(), 1);
}

TEST_F(RecoveryTest, SetsAnInvalidJournalAsideAndReportsItOnce) {
    const Path folder = directories().ownData() / "journal";
    const Path file = make({"a"}).front();
    const auto journal = [](const std::string& kind, const std::string& rest) {
        return "{\"journal\":1,\"kind\":\"" + kind + "\",\"mode\":\"bin\"}\n" + rest + "\n";
    };
    const auto intent = [&](const std::string& paths) {
        return R"({"intent":{"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"a","bytes":1,)"
               R"("mode":"bin","date":1.0)" +
               paths + R"(},"folder":false,"inode":)" +
               std::to_string(fileStatus(file)->identity.inode) + R"(,"destination":")" +
               file.native() + "\"}";
    };
    const std::string original = R"(,"original":")" + file.native() + '"';
    const std::string trashed = R"(,"trashed":"/nowhere/files/a")";
    const std::string done = "\n{\"done\":\"0F8FAD5B-D9CB-469F-A165-70867728950E\"}";
    const std::string aFolder = "a folder";
    std::int64_t number = 100;
    for (const std::string& text :
         {std::string("no journal\n"), journal("eat", ""), journal("feed", R"({"intent":5})"),
          journal("feed", R"({"done":7})"), journal("put-back", intent(original)),
          journal("put-back", intent(original) + done), journal("delete", intent(original)),
          journal("delete", intent(trashed)), journal("feed", intent(original) + done),
          journal("put-back", R"({"intent":{},"destination":3})"), aFolder}) {
        SCOPED_TRACE(text);
        program.reset();
        const Path open = folder / (std::to_string(++number) + ".open");
        const Path aside = folder / (std::to_string(number) + ".damaged");
        if (text == aFolder)
            home.write(".local/share/vexmoor/journal" / open.filename() / "inside", "");
        else
            home.write(".local/share/vexmoor/journal" / open.filename(), text);
        start();
        ASSERT_EQ(program->recovery.problems.size(), 1U);
        EXPECT_EQ(describe(program->recovery.problems[0]),
                  "It can't be read and was renamed to " + aside.native() + ".");
        EXPECT_TRUE(exists(aside));
        EXPECT_FALSE(exists(open));
        start();
        EXPECT_TRUE(program->recovery.problems.empty());
    }
    EXPECT_EQ(program->ledger.count.get(), 0);
    EXPECT_EQ(contents(file), "a");
    feed({file});
    EXPECT_EQ(program->defaults->integer(Settlement::kRecordedKey), number + 1)
        << "its number is not assigned again";
}

/// Version 1 stored records in the history only, and one journal file per batch.
TEST_F(RecoveryTest, AdoptsRecordsOfAnEarlierVersion) {
    const auto older = feed(make({"older"})).done.at(0);
    const auto batch = feed(make({"a", "b", "c"})).done;
    const Path folder = directories().ownData() / "journal";
    std::string text = "{\"journal\":1,\"kind\":\"feed\",\"mode\":\"bin\"}\n";
    for (const auto& item : batch) {
        JournalEntry entry;
        entry.sacrifice = item;
        text += intentLine(entry) + doneLine(item.id);
    }
    const auto failed = entryFor(home / "failed", "/nowhere/files/failed");
    text += intentLine(failed) + failedLine(failed.sacrifice.id, "");
    program.reset();
    home.write(".local/share/vexmoor/journal/2.closed", text);
    std::filesystem::remove(folder / "current");
    RawDatabase(directories().ownData() / "defaults.db")
        .run("DROP TABLE records; PRAGMA user_version = 1; DELETE FROM defaults WHERE key IN "
             "('records.adopted', 'records.count', 'journal.position')");
    start();
    EXPECT_TRUE(program->recovery.problems.empty());
    EXPECT_FALSE(exists(folder / "2.closed"));
    start();
    std::vector<std::string> names;
    for (const auto& item : program->binnedItems.all())
        names.push_back(item.name);
    EXPECT_EQ(names, (std::vector<std::string>{"c", "b", "a", "older"}));
    EXPECT_EQ(program->binnedItems.lastBatch().size(), 3U);
    EXPECT_EQ(program->binnedItems.all().back().id, older.id);
    EXPECT_EQ(program->ledger.count.get(), 4);
}

TEST_F(RecoveryTest, CountsABatchOfAnEarlierVersionOnce) {
    constexpr int kItems = 45; // more than the history's maximum
    std::string text = "{\"journal\":1,\"kind\":\"feed\",\"mode\":\"bin\"}\n";
    const auto items = make(kItems);
    std::map<Path, std::uint64_t> inodes;
    for (const auto& item : items)
        inodes[item] = identityAt(item).inode;
    for (const auto& item :
         feed(items).done) { // a power cut removed the outcomes, but not the count
        auto entry = entryFor(*item.original, *item.trashed);
        entry.sacrifice = item;
        entry.inode = inodes[*item.original];
        text += intentLine(entry);
    }
    program.reset();
    home.write(".local/share/vexmoor/journal/1.open", text);
    std::filesystem::remove(directories().ownData() / "journal/current");
    RawDatabase(directories().ownData() / "defaults.db")
        .run("DROP TABLE records; PRAGMA user_version = 1; DELETE FROM defaults WHERE key IN "
             "('records.adopted', 'records.count', 'journal.position')");
    for (int starts = 0; starts < 2; ++starts) {
        start();
        EXPECT_TRUE(program->recovery.problems.empty());
        EXPECT_EQ(program->ledger.count.get(), kItems);
        EXPECT_EQ(program->binnedItems.all().size(), std::size_t{kItems});
        EXPECT_FALSE(exists(directories().ownData() / "journal/1.open"));
    }
}

TEST_F(RecoveryTest, ReportsAMissingOrEmptyJournal) {
    feed(make({"a"}));
    const Path file = directories().ownData() / "journal/current";
    const auto whole = contents(file);
    for (const std::string& left :
         {std::string(), std::string(whole.size(), '\0'), whole + "gone"}) {
        SCOPED_TRACE(left.size());
        program.reset();
        if (left.size() > whole.size())
            std::filesystem::remove(file);
        else
            home.write(".local/share/vexmoor/journal/current", left);
        start();
        ASSERT_FALSE(program->recovery.problems.empty());
        EXPECT_EQ(program->recovery.problems[0].code, make_error_code(DisposalError::journalLost));
        start();
        EXPECT_TRUE(program->recovery.problems.empty()) << "reported once";
        EXPECT_EQ(feed(make({"next"})).done.size(), 1U);
        start();
        EXPECT_TRUE(program->recovery.problems.empty());
    }
}

TEST_F(RecoveryTest, AcceptsAnyTypeOfFileInPlaceOfTheJournal) {
    const Path file = directories().ownData() / "journal/current";
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"a pipe", [&] { ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0); }},
        {"a folder", [&] { std::filesystem::create_directory(file); }},
        {"a device", [&] { std::filesystem::create_symlink("/dev/zero", file); }},
        {"a huge file",
         [&] {
             std::ofstream(file).flush();
             std::filesystem::resize_file(file, std::uintmax_t{1} << 40);
         }},
    };
    for (const auto& [what, make] : cases) {
        SCOPED_TRACE(what);
        feed({home.write("a", "a")});
        program.reset();
        std::filesystem::remove(file);
        make();
        start();
        EXPECT_FALSE(program->recovery.problems.empty());
        const auto next = feed({home.write("b", "b")});
        EXPECT_EQ(next.done.size(), 1U)
            << (next.failures.empty() ? "" : describe(next.failures[0].error));
        start();
        EXPECT_TRUE(program->recovery.problems.empty()) << "reported once";
        std::filesystem::remove_all(file);
        program->defaults->assign(Settlement::kPositionKey, std::nullopt);
    }
}

TEST_F(RecoveryTest, RecordsTheReadablePartOfADamagedJournal) {
    const auto items = make({"first", "second"});
    feed(make({"warm"}));
    const Path files = directories().dataHome / "Trash/files";
    const Path journal = directories().ownData() / "journal/current";
    {
        const auto writer = program->journal.begin(JournalKind::feed, DisposeMode::bin,
                                                   Settlement(*program->defaults).start());
        for (const auto& item : items) {
            (*writer)->intend(entryFor(item, files / item.filename()));
            ASSERT_TRUE((*writer)->sync());
            std::filesystem::rename(item, files / item.filename());
        }
    }
    std::string text = contents(journal);
    program.reset();
    text[text.find("\"first\"") + 1] = 'X';
    home.write(".local/share/vexmoor/journal/current", text);
    start();
    EXPECT_EQ(program->recovery.disposed, 1);
    EXPECT_EQ(recent()[0].name, "second");
    ASSERT_EQ(program->recovery.problems.size(), 1U);
    EXPECT_EQ(program->recovery.problems[0].code, make_error_code(DisposalError::journalSetAside));
    EXPECT_TRUE(exists(directories().ownData() / "journal/1.damaged"));

    // A block that was being written during the crash is no damage: none of its intents was carried
    // out.
    noteIntents(JournalKind::feed, {entryFor(make({"third"}).front(), files / "third")});
    text = contents(journal);
    program.reset();
    text[text.find("\"third\"") + 1] = 'X';
    home.write(".local/share/vexmoor/journal/current", text);
    start();
    EXPECT_TRUE(program->recovery.problems.empty());
    EXPECT_TRUE(exists(home / "third"));
}

TEST_F(RecoveryTest, ReportsFailuresAndPartialDissolvesAndWaitsForVolumes) {
    home.write("folder/left", "x");
    std::vector<JournalEntry> entries;
    for (const char* const name : {"folder", "failed", "gone", "usb/away", "swapped"}) {
        entries.push_back(entryFor(home / name, {}));
        entries.back().sacrifice.mode = DisposeMode::dissolve;
        entries.back().sacrifice.trashed.reset();
    }
    entries[3].volume = home / "usb"; // no mount point
    entries[4].volume = "/proc";      // another volume is mounted there
    entries[4].fileSystem = "uuid:other";
    {
        const auto writer = program->journal.begin(JournalKind::feed, DisposeMode::dissolve,
                                                   Settlement(*program->defaults).start());
        for (const auto& entry : entries)
            (*writer)->intend(entry);
        ASSERT_TRUE((*writer)->sync());
        (*writer)->note(begunLine(entries[0].sacrifice.id));
        (*writer)->note(failedLine(entries[1].sacrifice.id, "Permission denied."));
        ASSERT_TRUE((*writer)->flush());
    }
    clock.now = utc("2024-04-02 12:00:00"); // the next start is two days later
    start();
    EXPECT_EQ(program->recovery.disposed, 1);
    EXPECT_EQ(recent()[0].name, "gone");
    std::vector<std::string> told;
    for (const auto& [name, error, path] : program->recovery.failures)
        told.push_back(name + ": " + describe(error));
    EXPECT_EQ(told, (std::vector<std::string>{
                        "folder: Not all of it could be removed: " + (home / "folder").native() +
                            " remains.",
                        "failed: It failed before the batch was interrupted: Permission denied."}));
    ASSERT_EQ(program->recovery.problems.size(), 1U);
    EXPECT_EQ(describe(program->recovery.problems[0]),
              "away was being dissolved on a volume that is not available.");
    EXPECT_FALSE(program->recovery.unlocked.empty()) << "the first achievement";
    EXPECT_EQ(*program->progression.progress().lastDay,
              Calendar().startOfDay(entries[2].sacrifice.date));
    start();
    EXPECT_TRUE(needsRecovery());
    EXPECT_TRUE(program->recovery.problems.empty()) << "reported once";
    EXPECT_EQ(program->ledger.count.get(), 1);
}

} // namespace

} // namespace vexmoor::test
