#pragma once

#include "base/PlainQueue.h"
#include "base/SqliteUserDefaults.h"
#include "disposal/DisposalError.h"
#include "disposal/TrashInfo.h"
#include "intake/Intake.h"
#include "intake/Recovery.h"
#include "support/FakeClock.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vexmoor::test {

/// A picture that stores the item's name.
struct NamedPicture : Picture {
    explicit NamedPicture(std::string pictured) : name(std::move(pictured)) {}
    std::string name;
};

/// Fakes of the intake's ports, which record all calls in one list of events.
class Surroundings : public Dialogs,
                     public BatchAnimation,
                     public SizzlePlayer,
                     public Thumbnails,
                     public UndoKey,
                     public NotificationPort {
  public:
    void ask(const Question& question, std::function<void(const Answer&)> answered) override {
        events.push_back("ask " + question.message);
        asked.push_back(question);
        if (holdsQuestions)
            questions.push_back(std::move(answered));
        else
            answered(answer);
    }
    void report(const FailureReport& report) override {
        events.push_back("report " + report.message);
        reports.push_back(report);
    }
    void beep() override { events.emplace_back("beep"); }
    void play(std::vector<PicturePointer> pictures) override {
        events.push_back("burn " + std::to_string(pictures.size()));
        burned = std::move(pictures);
        if (const auto meanwhile = std::exchange(whileBurning, nullptr))
            meanwhile();
    }
    void play() override { events.emplace_back("sizzle"); }
    void load(const Path& item, std::function<void(PicturePointer)> completion) override {
        const auto picture =
            hasPictures ? std::make_shared<NamedPicture>(item.filename()) : nullptr;
        ++loads;
        if (holdsThumbnails)
            held.push_back([completion, picture] { completion(picture); });
        else
            completion(picture);
    }
    PicturePointer loadNow(const Path& item) override {
        ++synchronousLoads;
        return std::make_shared<NamedPicture>("now " + item.filename().native());
    }
    void disarm() override { events.emplace_back("disarm"); }
    void requestAuthorization(std::function<void(bool)> completion) override { completion(true); }
    void post(const Notification& notification) override {
        events.push_back("notify " + notification.title);
    }

    void answerThumbnails() {
        for (const auto& completion : std::exchange(held, {}))
            completion();
    }

    std::vector<std::string> events;
    std::vector<FailureReport> reports;
    std::vector<Question> asked;
    std::vector<PicturePointer> burned;
    Answer answer{true, false};
    bool holdsQuestions = false;
    std::vector<std::function<void(const Answer&)>> questions; ///< waiting for an answer
    std::function<void()> whileBurning;                        ///< called once by play()
    bool hasPictures = true;
    bool holdsThumbnails = false;
    std::vector<std::function<void()>> held;
    int loads = 0;
    int synchronousLoads = 0;
};

/// A scratch home with its stores and one running program. Calling start() again simulates a
/// restart.
class IntakeTest : public testing::Test {
  protected:
    IntakeTest() { start(); }

    void start() {
        program.reset();
        program = std::make_unique<Program>(*this);
    }

    [[nodiscard]] UserDirectories directories() const {
        return {home.path(), home / ".local/share", geteuid()};
    }

    /// Creates files with these names in the home folder; their content is their name.
    std::vector<Path> make(const std::vector<std::string>& names) const {
        std::vector<Path> paths;
        for (const auto& name : names)
            paths.push_back(home.write(name, name));
        return paths;
    }
    std::vector<Path> make(int count) const {
        std::vector<std::string> names;
        for (int i = 0; i < count; ++i)
            names.push_back("item " + std::to_string(i));
        return make(names);
    }

    struct Program {
        explicit Program(IntakeTest& test)
            : journal(test.directories().ownData() / "journal"),
              defaults(std::move(SqliteUserDefaults::open(
                                     test.directories().ownData() / "defaults.db",
                                     SqliteUserDefaults::Access::readWrite,
                                     [](const Error& error) { FAIL() << error.message(); }))
                           .value()),
              ledger(*defaults, test.clock.clock()), settings(*defaults),
              progression(*defaults, &ledger, test.clock.clock(), test.around, [](const Skin&) {}),
              binnedItems(ledger, defaults->records()),
              recovery(recover(journal, *defaults, ledger, progression, binnedItems,
                               test.directories())),
              intake({test.directories(), *defaults, ledger, settings, progression, binnedItems,
                      journal, &undoStack, main, work, test.around, test.around, test.around,
                      test.around, test.around, test.clock.clock()}) {}

        Journal journal;
        std::unique_ptr<SqliteUserDefaults> defaults;
        Ledger ledger;
        Settings settings;
        Progression progression;
        BinnedItems binnedItems;
        RecoveryReport recovery;
        UndoStack undoStack;
        PlainQueue main;
        PlainQueue work;
        Intake intake;
    };

    /// Runs both queues until they are empty.
    void settle() const {
        while (program->work.runOne() || program->main.runOne()) {
        }
    }

    /// Feeds the items, waits, and returns the result passed to the completion.
    BatchResult feed(const std::vector<Path>& items, bool fromFinder = false) const {
        BatchResult result;
        program->intake.consume(items, fromFinder,
                                [&](const BatchResult& ended) { result = ended; });
        settle();
        return result;
    }

    /// Adds a file to the Bin of a volume ("usb", in the home folder) and to the ledger; returns
    /// its original path. Renaming that folder simulates unplugging, because a folder that is no
    /// mount point is no volume.
    [[nodiscard]] Path fedToVolume(const std::string& name) const {
        const Path bin = Path("usb") / (".Trash-" + std::to_string(geteuid()));
        Sacrifice item;
        item.id = Uuid::generate();
        item.name = name;
        item.date = clock.now;
        item.original = home / "usb" / name;
        item.trashed = home.write(bin / "files" / name, name);
        item.facts = ItemFacts::of(*fileStatus(*item.trashed), true);
        home.write(bin / "info" / (name + ".trashinfo"), TrashInfo{name, item.date}.toText());
        program->ledger.record({item});
        program->binnedItems.add(0, {item});
        return *item.original;
    }

    [[nodiscard]] bool needsRecovery() const {
        return vexmoor::needsRecovery(program->journal, *program->defaults, program->binnedItems,
                                      directories());
    }
    [[nodiscard]] const std::vector<Sacrifice>& recent() const {
        return program->ledger.recent.get();
    }
    static bool exists(const Path& path) { return fileStatus(path).ok(); }

    TemporaryDirectory home;
    FakeClock clock{utc("2024-03-31 12:00:00")};
    Surroundings around;
    std::unique_ptr<Program> program;
};

} // namespace vexmoor::test
