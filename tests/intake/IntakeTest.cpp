#include "IntakeFixture.h"

#include "intake/BinnedItems.h"
#include "intake/Texts.h"
#include "support/RawDatabase.h"

#include <gmock/gmock.h>

#include <fstream>

namespace vexmoor::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> names(const std::vector<Sacrifice>& items) {
    std::vector<std::string> result;
    for (const auto& item : items)
        result.push_back(item.name);
    return result;
}

TEST_F(IntakeTest, RecordsABatchAndNotifiesAllPortsInOrder) {
    auto items = make({"a.txt", "b.txt"});
    items.push_back(home / "folder");
    home.write("folder/inside", "x");
    const auto result = feed(items);
    EXPECT_THAT(around.events,
                ElementsAre("sizzle", "burn 3", "notify Achievement: First Offering"));
    EXPECT_THAT(names(recent()), ElementsAre("folder", "b.txt", "a.txt"));
    EXPECT_EQ(result.done.size(), 3U);
    for (const auto& item : recent()) {
        EXPECT_TRUE(item.canRestore());
        EXPECT_TRUE(exists(*item.trashed));
        EXPECT_FALSE(exists(*item.original));
        EXPECT_EQ(item.date, clock.now);
    }
    EXPECT_EQ(recent().front().bytes,
              fileStatus(*recent().front().trashed / "inside")->allocatedBytes);
    EXPECT_EQ(program->progression.progress().items, 3);
    EXPECT_EQ(program->progression.progress().folders, 1);
    EXPECT_EQ(program->undoStack.undoMenuItemTitle(), "Undo Sacrifice of 3 Items");
    start();
    EXPECT_EQ(program->ledger.count.get(), 3);
    EXPECT_EQ(program->recovery.disposed, 0) << "a recorded batch is not recorded again";
}

TEST_F(IntakeTest, FeedsAnItemOnceDespiteDuplicates) {
    const Path a = make({"a"}).front();
    home.write("folder/other", "x");
    program->intake.consume({a, a, home / "./a", home / "folder/../a"}, false);
    program->intake.consume({a}, false);
    EXPECT_EQ(program->intake.inFlight(), std::set<std::string>{a});
    settle();
    EXPECT_EQ(program->ledger.count.get(), 1);
    EXPECT_THAT(program->intake.inFlight(), IsEmpty());
    EXPECT_EQ(std::ranges::count(around.events, "sizzle"), 1);
    make({"a"});
    feed({a});
    EXPECT_EQ(program->ledger.count.get(), 2);
}

TEST_F(IntakeTest, BurnsALargeBatchAsSoonAsTenItemsAreDone) {
    const auto items = make(25);
    program->intake.consume(items, false);
    ASSERT_TRUE(program->work.runOne());
    ASSERT_TRUE(program->main.runOne());
    EXPECT_THAT(around.events, ElementsAre("sizzle", "burn 10"));
    EXPECT_EQ(program->ledger.count.get(), 0) << "the ledger is updated once, at the end";
    settle();
    EXPECT_EQ(program->ledger.count.get(), 25);
    EXPECT_EQ(std::ranges::count(around.events, "burn 10"), 1);
    EXPECT_EQ(around.loads, 10);
    EXPECT_EQ(around.synchronousLoads, 0);
    EXPECT_EQ(std::static_pointer_cast<const NamedPicture>(around.burned.back())->name, "item 9");
}

TEST_F(IntakeTest, LoadsPicturesThatThePrefetchDidNotFind) {
    around.hasPictures = false;
    auto items = make(15);
    items.insert(items.begin(), home / "missing");
    feed(items);
    EXPECT_EQ(around.synchronousLoads, 10);
    ASSERT_EQ(around.burned.size(), 10U);
    EXPECT_EQ(std::static_pointer_cast<const NamedPicture>(around.burned.front())->name,
              "now item 0");
}

TEST_F(IntakeTest, WaitsForTheThumbnailsAndKeepsBatchesInOrder) {
    around.holdsThumbnails = true;
    program->intake.consume(make({"slow"}), false);
    settle();
    EXPECT_TRUE(exists(home / "slow"));
    around.holdsThumbnails = false;
    program->intake.consume(make({"quick"}), false);
    around.answerThumbnails();
    settle();
    EXPECT_THAT(names(recent()), ElementsAre("slow", "quick"));
}

TEST_F(IntakeTest, ReportsABatchInWhichAllItemsFail) {
    std::vector<Path> missing;
    for (int i = 0; i < 9; ++i)
        missing.push_back(home / ("missing " + std::to_string(i)));
    const auto result = feed(missing, true);
    EXPECT_THAT(around.events,
                ElementsAre("sizzle", "disarm", "report The cauldron rejected 9 items"));
    const auto& text = around.reports.front().informative;
    EXPECT_EQ(std::ranges::count(text, '\n'), 8);
    EXPECT_TRUE(text.starts_with("missing 0: No such file or directory.\n")) << text;
    EXPECT_TRUE(text.ends_with("\n…and 1 more.")) << text;
    EXPECT_EQ(result.failures.size(), 9U);
    EXPECT_EQ(program->ledger.count.get(), 0);
    EXPECT_FALSE(program->undoStack.canUndo());
}

TEST_F(IntakeTest, RejectsDotsAndFeedsTheRest) {
    const auto good = make({"good"}).front();
    feed({home / ".", good, home / "x/.."});
    EXPECT_EQ(program->ledger.count.get(), 1);
    ASSERT_EQ(around.reports.size(), 1U);
    EXPECT_EQ(around.reports.front().failures.size(), 2U);
    feed({home / "."});
    EXPECT_EQ(around.reports.size(), 2U);
    EXPECT_EQ(around.reports.back().informative, describe(disposalError(DisposalError::isDots)));
}

TEST_F(IntakeTest, AsksBeforeDissolvingUntilSuppressed) {
    program->settings.mode.set(DisposeMode::dissolve);
    const auto items = make({"a", "b"});
    around.answer = {false, true};
    EXPECT_TRUE(feed(items, true).declined);
    EXPECT_THAT(around.events, ElementsAre("ask Dissolve 2 items forever?", "disarm"));
    EXPECT_TRUE(exists(items.front()));
    EXPECT_FALSE(program->settings.confirmDissolve.get());
    EXPECT_THAT(program->intake.inFlight(), IsEmpty());

    around.events.clear();
    const auto result = feed(items, true);
    EXPECT_EQ(std::ranges::count(around.events, "ask Dissolve 2 items forever?"), 0);
    EXPECT_GE(std::ranges::count(around.events, "disarm"), 1);
    EXPECT_FALSE(exists(items.front()));
    EXPECT_EQ(result.done.front().original, std::nullopt);
    EXPECT_FALSE(program->undoStack.canUndo());
    EXPECT_EQ(program->progression.progress().dissolved, 2);
    start();
    EXPECT_FALSE(program->settings.confirmDissolve.get());
    EXPECT_EQ(dissolveQuestion(1).message, "Dissolve this item forever?");
}

TEST_F(IntakeTest, ListsTheFirstItemsInTheQuestion) {
    const auto listOf = [](const std::vector<StoredPath>& items) {
        return dissolveQuestion(items.size(), firstNames(items)).items;
    };
    EXPECT_EQ(listOf({"/x/a\nb\xff"}), "a␊b\uFFFD");
    EXPECT_EQ(listOf({9, "/x/a"}), "a\na\na\na\na\na\na\na\n…and 1 more.");
    program->settings.mode.set(DisposeMode::dissolve);
    around.answer = {false, false};
    feed(make({"first", "second"}));
    ASSERT_EQ(around.asked.size(), 1U);
    EXPECT_EQ(around.asked[0].items, "first\nsecond");
    EXPECT_EQ(around.asked[0].informative, "Dissolve mode skips the Bin. There is no Put Back.");
}

TEST_F(IntakeTest, UndoesABatchAndReportsItemsGoneFromTheBin) {
    const auto items = make({"a", "b", "c"});
    feed(items, true);
    EXPECT_EQ(std::ranges::count(around.events, "disarm"), 0);
    std::filesystem::remove(*recent()[1].trashed); // b
    home.write("c", "in the way");
    program->undoStack.undo();
    settle();
    EXPECT_EQ(std::ranges::count(around.events, "disarm"), 1);
    EXPECT_EQ(contents(home / "a"), "a");
    EXPECT_EQ(contents(home / "c 2"), "c");
    EXPECT_EQ(contents(home / "c"), "in the way");
    EXPECT_EQ(around.reports.back().message, "Couldn't put back b");
    EXPECT_EQ(around.reports.back().informative, "b is no longer in the Bin.");
    EXPECT_EQ(recent()[0].restored, clock.now);
    EXPECT_EQ(recent()[1].lost, true);
    EXPECT_FALSE(program->undoStack.canUndo());
    program->intake.restore(recent());
    EXPECT_EQ(around.events.back(), "beep");
}

TEST_F(IntakeTest, DeletesFromTheBinAfterAsking) {
    feed(make({"a", "b"}));
    const auto both = recent();
    around.answer = {false, false};
    program->intake.deleteImmediately({both.front()});
    settle();
    EXPECT_EQ(around.events.back(), "ask Are you sure you want to delete “b” immediately?");
    EXPECT_TRUE(exists(*both.front().trashed));

    around.answer = {true, false};
    std::filesystem::remove(*both.front().trashed);
    program->intake.deleteImmediately(both);
    settle();
    EXPECT_EQ(around.reports.back().message, "Couldn't delete b");
    EXPECT_FALSE(exists(*both.back().trashed));
    EXPECT_EQ(recent()[0].lost, true);
    EXPECT_EQ(recent()[1].deleted, clock.now);
    EXPECT_EQ(program->ledger.count.get(), 2) << "counts only grow";
}

TEST_F(IntakeTest, KeepsAnItemThatReplacedARecordsItem) {
    const auto fed = feed(make({"a", "b"})).done;
    for (const auto& item : fed) { // another program empties the Bin and adds its own items
        std::ofstream(Path(*item.trashed)) << "theirs";
        std::ofstream(directories().dataHome / "Trash/info" / (item.name + ".trashinfo"))
            << "[Trash Info]\nPath=/theirs/" + item.name + "\nDeletionDate=2024-03-31T12:00:00\n";
    }
    program->undoStack.undo();
    settle();
    EXPECT_EQ(around.reports.back().message, "Couldn't put back 2 items");
    const auto second = feed(make({"a"})).done; // as "a.2", since "a" is theirs
    program->intake.deleteImmediately({fed[0], fed[1]});
    program->intake.deleteImmediately(second);
    settle();
    for (const auto& item : fed)
        EXPECT_EQ(contents(*item.trashed), "theirs");
    EXPECT_EQ(around.reports.back().message, "Couldn't delete 2 items");
    EXPECT_EQ(recent()[0].deleted, clock.now);
    EXPECT_EQ(recent()[1].lost, true);
    EXPECT_FALSE(exists(home / "a"));
}

TEST_F(IntakeTest, KeepsRecordsOfItemsOnAMissingVolume) {
    const auto volume = [&](const char* state) { return home / state; };
    const Path item = fedToVolume("a");
    std::filesystem::rename(volume("usb"), volume("unplugged"));
    for (const bool isMountPointThere : {false, true}) {
        if (isMountPointThere)
            std::filesystem::create_directory(volume("usb"));
        for (const bool isPutBack : {true, false}) {
            if (isPutBack)
                program->intake.restore(recent());
            else
                program->intake.deleteImmediately(recent());
            settle();
            EXPECT_EQ(around.reports.back().informative,
                      "a is in the Bin of a volume that is not available.");
            EXPECT_TRUE(recent()[0].canRestore());
        }
    }
    EXPECT_TRUE(std::filesystem::is_empty(volume("usb")));
    std::filesystem::remove(volume("usb"));
    std::filesystem::rename(volume("unplugged"), volume("usb"));
    program->intake.restore(recent());
    settle();
    EXPECT_EQ(contents(item), "a");
}

TEST_F(IntakeTest, DistinguishesADeletedHomeBinFromAMissingOne) {
    const Path bin = directories().dataHome / "Trash";
    struct Case {
        std::function<void()> happening;
        bool isLost;
    };
    for (const auto& [happening, isLost] : {
             Case{[&] { std::filesystem::rename(bin, home / "elsewhere"); }, true},
             Case{[&] { std::filesystem::remove_all(bin / "files"); }, true},
             Case{[&] {
                      std::filesystem::rename(bin, home / "elsewhere");
                      std::filesystem::create_symlink(home / "not mounted", bin);
                  },
                  false},
         }) {
        feed(make({"a"}));
        happening();
        program->intake.restore({recent()[0]});
        settle();
        EXPECT_EQ(recent()[0].lost.value_or(false), isLost);
        EXPECT_FALSE(exists(home / "a"));
        std::filesystem::remove_all(bin);
        std::filesystem::remove_all(home / "elsewhere");
    }
}

TEST_F(IntakeTest, DoesNotDeleteAnItemThatArrivedDuringTheQuestion) {
    feed(make({"a"}));
    around.holdsQuestions = true;
    BatchResult result;
    program->intake.deleteImmediately(recent(), [&](const BatchResult& ended) { result = ended; });
    program->undoStack.undo();
    settle();
    const auto newer = feed({home / "a"}).done;
    around.questions.at(0)({true, false});
    settle();
    EXPECT_EQ(contents(*newer.at(0).trashed), "a");
    EXPECT_TRUE(recent()[0].canRestore());
    ASSERT_EQ(result.failures.size(), 1U);
    EXPECT_EQ(around.reports.back().informative, "a is no longer in the Bin.");
    EXPECT_FALSE(recent()[1].lost) << "it was put back";
}

TEST_F(IntakeTest, TakesAnItemOutOnceDespiteSeveralRequests) {
    const Path a = make({"a"}).front();
    feed({a});
    const auto old = recent();
    make({"a"});
    program->intake.deleteImmediately(old);
    program->intake.consume({a}, false); // gets the same path in the Bin in the same second
    program->intake.deleteImmediately(old);
    program->intake.restore(old);
    settle();
    EXPECT_EQ(around.reports.size(), 2U);
    ASSERT_TRUE(recent()[0].canRestore());
    EXPECT_EQ(recent()[0].trashed, old[0].trashed);
    EXPECT_EQ(contents(*recent()[0].trashed), "a");
    EXPECT_EQ(recent()[1].deleted, clock.now);
    EXPECT_FALSE(recent()[1].lost);
}

TEST_F(IntakeTest, ReportsBinnedItemsThatWereNotFound) {
    feed(make({"a"}));
    around.events.clear();
    const BinnedItems& binned = program->binnedItems;
    for (const bool isAlone : {true, false}) {
        auto [items, missing] = binned.toPutBack(
            isAlone ? std::vector<std::string>{"b"}
                    : std::vector<std::string>{"b", "a", recent()[0].id.toString()},
            0);
        BatchResult result;
        program->intake.restore(std::move(items), [&](const BatchResult& ended) { result = ended; },
                                {.missing = std::move(missing)});
        settle();
        EXPECT_EQ(result.done.size(), isAlone ? 0U : 1U) << "duplicates count once";
        ASSERT_EQ(result.failures.size(), 1U);
        EXPECT_EQ(describe(result.failures[0].error), "b is no longer in the Bin.");
    }
    const std::string told = "report Couldn't put back b";
    EXPECT_EQ(around.events, (std::vector<std::string>{told, "disarm", told}));
}

TEST_F(IntakeTest, StopsOneBatchBetweenItemsAndNoOther) {
    const auto items = make(5);
    const auto meter = std::make_shared<WorkMeter>();
    meter->stop = true;
    BatchResult stopped;
    program->intake.consume(items, false, [&](const BatchResult& result) { stopped = result; },
                            {.meter = meter});
    const auto other = feed({home.write("other", "x")});
    EXPECT_EQ(std::vector<Path>(stopped.untouched.begin(), stopped.untouched.end()), items);
    EXPECT_EQ(other.done.size(), 1U);
    EXPECT_EQ(feed(items).done.size(), 5U);
}

TEST_F(IntakeTest, LeavesItemsThatHaveNotBegunUntouchedOnStop) {
    std::vector<std::size_t> counts;
    const auto watch =
        program->intake.subscribeToBatches([&](std::size_t batches) { counts.push_back(batches); });
    program->intake.consume(make({"before"}), false);
    program->intake.stop();
    EXPECT_EQ(feed(make({"after"})).untouched.size(), 1U);
    EXPECT_EQ(program->ledger.count.get(), 0);
    EXPECT_THAT(counts, ElementsAre(0, 1, 2, 1, 0));
}

TEST_F(IntakeTest, StoresAnUnsavedBatchTogetherWithTheNextOne) {
    const auto items = make({"a", "b"});
    const auto first = feed({items[0]}).done;
    {
        RawDatabase database(directories().ownData() / "defaults.db");
        database.run("CREATE TRIGGER refuse BEFORE INSERT ON defaults "
                     "BEGIN SELECT RAISE(ABORT, 'refused'); END");
        EXPECT_TRUE(feed({items[1]}).storeError);
        database.run("DROP TRIGGER refuse");
    }
    program->intake.storeLeftOver();
    EXPECT_THAT(names(program->binnedItems.lastBatch()), ElementsAre("b"));
    program->intake.restore(first);
    settle();
    EXPECT_TRUE(exists(items[0]));
    EXPECT_FALSE(needsRecovery());
    start();
    EXPECT_EQ(program->ledger.count.get(), 2);
    EXPECT_THAT(names(program->binnedItems.lastBatch()), ElementsAre("b"));
}

TEST_F(IntakeTest, StartsAConfirmedBatchWhileOtherQuestionsWait) {
    const auto items = make({"a", "b", "c"});
    program->settings.mode.set(DisposeMode::dissolve);
    around.holdsQuestions = true;
    bool declined = false;
    program->intake.consume({items[0]}, false,
                            [&](const BatchResult& result) { declined = result.declined; });
    program->intake.consume({items[1]}, false);
    program->settings.mode.set(DisposeMode::bin);
    EXPECT_EQ(feed({items[0], items[1]}).done.size(), 0U) << "already being fed";
    ASSERT_EQ(around.questions.size(), 2U);
    around.questions[1]({true, false});
    settle();
    EXPECT_FALSE(exists(items[1]));
    EXPECT_TRUE(exists(items[0]));
    EXPECT_EQ(recent().at(0).mode, DisposeMode::dissolve) << "as confirmed";
    around.questions[0]({false, false});
    EXPECT_TRUE(declined);
    EXPECT_EQ(feed({items[0], items[2]}).done.size(), 2U) << "no longer being fed";
    EXPECT_THAT(around.reports, testing::IsEmpty());
}

TEST_F(IntakeTest, DissolvesOnlyTheFilesTheUserConfirmed) {
    const auto items = make({"kept", "replaced", "folder/inside"});
    program->settings.mode.set(DisposeMode::dissolve);
    around.holdsQuestions = true;
    BatchResult result;
    program->intake.consume({items[0], items[1], home / "new", home / "folder"}, false,
                            [&](const BatchResult& ended) { result = ended; });
    std::filesystem::rename(items[1], home / "aside");
    make({"replaced", "new", "folder/another"});
    ASSERT_EQ(around.questions.size(), 1U);
    around.questions[0]({true, false});
    settle();
    EXPECT_THAT(names(result.done), ElementsAre("kept", "folder"));
    ASSERT_EQ(result.failures.size(), 2U);
    for (const auto& failure : result.failures)
        EXPECT_EQ(failure.error.code, make_error_code(DisposalError::replaced)) << failure.name;
    EXPECT_TRUE(exists(items[1]) && exists(home / "new"));
}

TEST_F(IntakeTest, UsesTheDialogsOfTheBatch) {
    Surroundings terminal;
    terminal.answer = {false, false};
    bool declined = false;
    program->intake.consume(make({"a"}), false,
                            [&](const BatchResult& result) { declined = result.declined; },
                            {.mode = DisposeMode::dissolve, .dialogs = &terminal});
    program->intake.consume({home / "missing"}, false, {}, {.dialogs = &terminal});
    settle();
    EXPECT_TRUE(declined);
    EXPECT_THAT(terminal.events, ElementsAre("ask Dissolve this item forever?",
                                             "report The cauldron rejected missing"));
    EXPECT_THAT(around.reports, testing::IsEmpty());
}

TEST_F(IntakeTest, MatchesNamesAsBytesAndRejectsAmbiguousOnes) {
    const auto items = make({"caf\xe8.txt", "one/same", "two/same", "report.pdf"});
    const auto done = feed(items).done;
    make({"report.pdf"});
    const auto newest = feed({items[3]}).done.at(0).id;
    const auto& binned = program->binnedItems;
    const auto id = done[0].id.toString();
    const struct {
        std::string wanted;
        std::optional<Uuid> meant;
    } cases[] = {
        {"caf\xe9.txt", std::nullopt},
        {"caf\xe8.txt", done[0].id},
        {displayText("caf\xe8.txt"), done[0].id},
        {id, done[0].id},
        {id.substr(0, 8), done[0].id},
        {id.substr(0, 7), std::nullopt},
        {"same", std::nullopt},
        {items[2].native(), done[2].id},
        {(home / "three/same").native(), std::nullopt},
        {"report.pdf", newest},
    };
    for (const auto& [wanted, meant] : cases) {
        const auto named = binned.named({wanted});
        EXPECT_EQ(named.items.empty() ? std::nullopt : std::optional(named.items[0].id), meant)
            << wanted;
        EXPECT_EQ(named.missing.size(), meant ? 0U : 1U) << wanted;
    }
    const auto told = describe(binned.named({"same"}).missing.at(0).error);
    for (const auto& item : {items[1], items[2]})
        EXPECT_THAT(told, testing::HasSubstr(item.native()));
}

TEST_F(IntakeTest, FindsBinnedItemsByNameNewestFirst) {
    feed(make({"a.txt", "b.png"}));
    const auto newest = feed(make({"c.txt", "d.txt"})).done;
    const auto isText = [](const std::string& name) { return name.ends_with(".txt"); };
    const auto& binned = program->binnedItems;
    EXPECT_THAT(names(binned.matching(isText, 9)), ElementsAre("d.txt", "c.txt", "a.txt"));
    EXPECT_THAT(names(binned.matching(isText, 2)), ElementsAre("d.txt", "c.txt"));
    program->intake.restore({newest[1]});
    settle();
    EXPECT_THAT(names(binned.matching(isText, 2)), ElementsAre("c.txt", "a.txt"));
}

TEST_F(IntakeTest, SkipsUndoActionsThatHaveNothingLeft) {
    feed(make({"a"}));
    feed(make({"b", "c"}));
    program->intake.restore(program->binnedItems.lastBatch());
    settle();
    EXPECT_EQ(program->undoStack.undoMenuItemTitle(), "Undo Sacrifice");
    feed({home / "b"});
    std::filesystem::remove(*recent()[0].trashed); // another program removes it from the Bin
    program->undoStack.undo();
    settle();
    EXPECT_TRUE(exists(home / "a"));
    EXPECT_THAT(around.reports, IsEmpty()) << "nothing was lost";
    EXPECT_FALSE(program->undoStack.canUndo());
}

} // namespace

} // namespace vexmoor::test
