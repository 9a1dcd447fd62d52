#include "IntakeFixture.h"

#include "intake/BinnedItems.h"

#include <fstream>

namespace vexmoor::test {

namespace {

/// Journals as a process leaves them that died before it could record its batch: the work was done,
/// the main thread never heard of it.
class RecoveryTest : public IntakeTest {
  protected:
    void feedAndDie(const std::vector<Path>& items) {
        program->intake.consume(items, false);
        while (program->work.runOne()) {
        }
        start();
    }
};

TEST_F(RecoveryTest, RecordsOnceWhatACutOffBatchHadDone) {
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

TEST_F(RecoveryTest, RecordsCutOffDissolvesPutBacksAndDeletions) {
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
}

TEST_F(RecoveryTest, LooksAtTheDiskForIntentsWithoutAnOutcome) {
    feed(make({"moved", "not moved", "never tried"}));
    const auto moved = recent()[2];
    const auto notMoved = recent()[1];
    program.reset();
    // As if the last batch were cut off at its second item: info reserved, nothing moved.
    const Path journal = directories().ownData() / "journal";
    std::filesystem::rename(*notMoved.trashed, *notMoved.original);
    std::string text = contents(journal / "1.closed");
    const auto firstDone = text.find("{\"done\"");
    const auto secondDone = text.find("{\"done\"", firstDone + 1);
    std::ofstream(journal / "1.open", std::ios::binary)
        << text.substr(0, firstDone)
        << text.substr(text.find('\n', firstDone) + 1, secondDone - text.find('\n', firstDone) - 1)
        << "{\"intent\":{\"id\":\"torn";
    std::filesystem::remove(journal / "1.closed");
    for (const char* suffix : {"", "-wal", "-shm"})
        std::filesystem::remove(directories().ownData() / ("defaults.db" + std::string(suffix)));
    start();
    EXPECT_EQ(program->recovery.disposed, 1);
    ASSERT_EQ(recent().size(), 1U);
    EXPECT_EQ(recent()[0].id, moved.id);
    EXPECT_TRUE(exists(*notMoved.original));
    EXPECT_FALSE(exists(directories().dataHome / "Trash/info/not moved.trashinfo"));
    EXPECT_TRUE(exists(directories().dataHome / "Trash/info/moved.trashinfo"));
}

TEST_F(RecoveryTest, DecidesNothingOfAVolumeThatIsNotThere) {
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
                entry.sacrifice.id = Uuid::generate(); // the ledger has yet to hear of it
            if (kind == Kind::putBack)
                entry.destination = original;
            const auto recorded = program->defaults->integer(Settlement::kRecordedKey).value_or(0);
            ASSERT_TRUE((*program->journal.begin(kind, DisposeMode::bin, recorded))->intend(entry));
            if (happened ? kind != Kind::feed : kind == Kind::feed)
                std::filesystem::rename(place, kind == Kind::erase ? home / "gone" : original);
            const auto count = program->ledger.count.get();

            std::filesystem::rename(home / "usb", home / "unplugged");
            start();
            ASSERT_EQ(program->recovery.problems.size(), 1U);
            EXPECT_EQ(describe(program->recovery.problems[0]),
                      "a is in the Bin of a volume that is not there now.");
            feed(make({"another batch"}));
            start();
            EXPECT_TRUE(program->recovery.problems.empty()) << "told once";
            EXPECT_TRUE(recent()[1].canRestore());
            EXPECT_EQ(program->ledger.count.get(), count + 1);
            EXPECT_EQ(program->journal.open().size(), 1U);

            std::filesystem::rename(home / "unplugged", home / "usb");
            for (int starts = 0; starts < 2; ++starts) {
                start();
                EXPECT_TRUE(program->journal.open().empty());
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

TEST_F(RecoveryTest, FindsTheWholeLastBatchHoweverLargeAfterARestart) {
    feed(make(90));
    feed(make({"newer"}));
    start();
    BinnedItems binned(program->ledger, program->journal);
    EXPECT_EQ(binned.lastBatch().size(), 1U);
    EXPECT_EQ(binned.newest(60).size(), 60U);
    ASSERT_TRUE(binned.find("item 3"));
    program->intake.restore(binned.lastBatch());
    settle();
    auto batch = binned.lastBatch();
    EXPECT_EQ(batch.size(), 90U);
    program->intake.restore(batch);
    settle();
    for (int i = 0; i < 90; ++i)
        EXPECT_TRUE(exists(home / ("item " + std::to_string(i)))) << i;
    EXPECT_TRUE(binned.lastBatch().empty());
    EXPECT_FALSE(binned.find("item 3"));
}

TEST_F(RecoveryTest, KeepsTheJournalsOfTheNewestBatches) {
    for (int i = 0; i < 25; ++i)
        feed(make({"file"}));
    EXPECT_LE(program->journal.closed().size(), Journal::kKept + 1);
    EXPECT_EQ(program->journal.closed().front(), 25);
    EXPECT_TRUE(program->journal.open().empty());
}

TEST_F(RecoveryTest, SettlesAJournalThatWasCutOffBeforeItsFirstIntent) {
    for (const char* text : {"", "{\"journal\":1,\"ki"}) {
        program.reset();
        home.write(".local/share/vexmoor/journal/7.open", text);
        start();
        EXPECT_TRUE(program->recovery.problems.empty()) << text;
        EXPECT_TRUE(program->journal.open().empty()) << text;
    }
    EXPECT_EQ(program->ledger.count.get(), 0);
}

TEST_F(RecoveryTest, LeavesTheJournalOfANewerVersionToThatVersion) {
    program.reset();
    const Path open =
        home.write(".local/share/vexmoor/journal/7.open", "{\"journal\":2,\"kind\":\"new\"}\n");
    for (int starts = 0; starts < 2; ++starts) {
        start();
        EXPECT_EQ(program->recovery.problems.size(), 1U);
        EXPECT_TRUE(exists(open));
    }
    feed(make({"a"}));
    EXPECT_EQ(program->ledger.count.get(), 1);
}

TEST_F(RecoveryTest, SetsAJournalAsideThatMakesNoSenseAndTellsOfItOnce) {
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
                  "It can't be understood and was set aside as " + aside.native() + ".");
        EXPECT_TRUE(exists(aside));
        EXPECT_FALSE(exists(open));
        start();
        EXPECT_TRUE(program->recovery.problems.empty());
    }
    EXPECT_EQ(program->ledger.count.get(), 0);
    EXPECT_EQ(contents(file), "a");
    feed({file});
    EXPECT_EQ(program->journal.closed().front(), number + 1) << "its number is not given again";
}

} // namespace

} // namespace vexmoor::test
