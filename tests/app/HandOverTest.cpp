#include "ServedIntake.h"

#include "base/JsonReader.h"
#include "desktopbus/FakeNotificationServer.h"
#include "intake/BatchReport.h"
#include "support/RawDatabase.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <future>

namespace vexmoor::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

/// Runs the built command line with a desktop program that the test's process simulates.
class HandOverTest : public ServedIntake {
  protected:
    [[nodiscard]] Command vexmoor(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), VEXMOOR_PROGRAM);
        Command command(std::move(arguments));
        command.in(home.path()).withNothingElse();
        command.with("HOME", home.path()).with("LANG", "C.UTF-8").with("TERM", "xterm");
        command.with("XDG_DATA_HOME", directories().dataHome);
        command.with("DBUS_SESSION_BUS_ADDRESS", bus.address());
        return command;
    }

    /// Runs the command while the desktop program's event loop runs.
    [[nodiscard]] Command::Result run(std::vector<std::string> arguments) const {
        auto command = vexmoor(std::move(arguments)).start();
        return end(command);
    }
    [[nodiscard]] Command::Result end(Command::Running& command) const {
        EXPECT_TRUE(serveUntil([&] { return command.endsWithin({}); }));
        return command.wait();
    }
    [[nodiscard]] Command::Result runOnTerminal(std::vector<std::string> arguments,
                                                const std::string& typed) const {
        auto result = std::async(std::launch::async, [&, command = vexmoor(std::move(arguments))] {
            return command.runOnTerminal(typed);
        });
        EXPECT_TRUE(serveUntil([&] {
            return result.wait_for(std::chrono::seconds::zero()) == std::future_status::ready;
        }));
        return result.get();
    }

    /// Returns the number of connections to the bus.
    [[nodiscard]] qsizetype present() const {
        return connection("another").interface()->registeredServiceNames().value().size();
    }

    /// Starts the command and waits until it is connected to the bus.
    [[nodiscard]] Command::Running startAndMeet(std::vector<std::string> arguments) const {
        const auto before = present();
        auto command = vexmoor(std::move(arguments)).start();
        EXPECT_TRUE(serveUntil([&] { return present() > before; }));
        return command;
    }

    void leaveBus() {
        service.reset();
        around.held.clear(); // unfinished batches have connections too
        QDBusConnection::disconnectFromBus("desktop");
    }

    [[nodiscard]] bool isThere(const std::string& name) const { return exists(home / name); }
};

TEST_F(HandOverTest, ReturnsTheSameStatusAsWithoutADesktop) {
    make({"a", "b"});
    const struct {
        std::vector<std::string> arguments;
        int status;
        const char* output;
        const char* errors;
    } steps[] = {
        {{"put-back"}, 3, "", "There is nothing to put back."},
        {{"feed", "a", "./b"}, 0, "To the Bin: a (4 KB)\nTo the Bin: b (4 KB)\n", ""},
        {{"feed", "a"}, 1, "", "a: No such file or directory."},
        {{"feed", ".", "x/.."}, 1, "", "Use the folder's own name."},
        {{"feed", home.path()}, 1, "", "The home folder can't be thrown away."},
        {{"put-back", "a", "c"}, 1, "Put back: a", "c is no longer in the Bin."},
        {{"feed", "--mode", "dissolve", "a"}, 3, "", "--yes"},
        {{"feed", "--mode", "dissolve", "--yes", "a"}, 0, "Dissolved: a", ""},
        {{"delete", "b"}, 3, "", "--yes"},
        {{"delete", "c"}, 1, "", "c is no longer in the Bin."},
        {{"delete", "--yes", "b", "c\xff"}, 1, "Deleted from the Bin: b", "c\uFFFD is no longer"},
        {{"put-back", "--last", "3"}, 3, "", "There is nothing to put back."},
        {{"settings", "mode", "burn"}, 2, "", "mode can be: bin, dissolve."},
        {{"settings", "skin", "gold"}, 3, "", "The Gold cauldron is still locked."},
        {{"settings", "sound", "off"}, 0, "", ""},
        {{"settings", "sound"}, 0, "off\n", ""},
    };
    for (const auto& [arguments, status, output, errors] : steps) {
        const auto result = run(arguments);
        EXPECT_EQ(result.status, status) << testing::PrintToString(arguments) << result.errors;
        EXPECT_THAT(result.output, HasSubstr(output));
        EXPECT_THAT(result.errors, HasSubstr(errors));
    }
    EXPECT_THAT(around.events, Contains("burn 2")) << "the desktop program ran the batch";
    EXPECT_FALSE(program->settings.sound.get());
    for (const auto& event : around.events)
        EXPECT_THAT(event, Not(testing::ContainsRegex("ask|report")));
}

TEST_F(HandOverTest, PassesNamesByteForByteAndPrintsTheDocument) {
    const std::vector<std::string> names = {"new\nline", "broken\xff", "--json", " "};
    make(names);
    const auto fed = run({"feed", "--json", "--", names[0], names[1], names[2], names[3], "gone"});
    EXPECT_EQ(fed.status, 1) << fed.errors;
    const auto report = batchReportFromJson(parsedJson(fed.output));
    ASSERT_TRUE(report) << fed.output;
    ASSERT_EQ(report->done.size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(*report->done[i].original, home / names[i]);
    EXPECT_EQ(report->failures.size(), 1U);
    EXPECT_EQ(run({"put-back", names[1], report->done[0].id.toString(), "--", names[2]}).status, 0);
    EXPECT_EQ(run({"put-back"}).status, 0);
    for (const auto& name : names)
        EXPECT_TRUE(isThere(name)) << name;
}

TEST_F(HandOverTest, AsksOnItsOwnTerminalFirst) {
    make({"a", "b"});
    const auto declined = runOnTerminal({"feed", "--mode", "dissolve", "a", "b", "./a"}, "n\n");
    EXPECT_EQ(declined.status, 3);
    EXPECT_THAT(declined.output, HasSubstr("Dissolve 2 items forever?"));
    EXPECT_THAT(declined.output, HasSubstr("Nothing was touched."));
    EXPECT_THAT(around.events, IsEmpty());
    const auto dissolved = runOnTerminal({"feed", "--mode", "dissolve", "a"}, "y\n");
    EXPECT_EQ(dissolved.status, 0) << dissolved.output;
    EXPECT_FALSE(isThere("a"));

    ASSERT_EQ(run({"feed", "b"}).status, 0);
    EXPECT_EQ(runOnTerminal({"delete", "b"}, "n\n").status, 3);
    const auto deleted = runOnTerminal({"delete", "b"}, "y\n");
    EXPECT_THAT(deleted.output, HasSubstr("Are you sure you want to delete “b” immediately?"));
    EXPECT_EQ(deleted.status, 0) << deleted.output;
    EXPECT_TRUE(recent()[0].deleted);

    ASSERT_EQ(run({"settings", "confirmDissolve", "off"}).status, 0);
    make({"c"});
    EXPECT_THAT(runOnTerminal({"feed", "--mode", "dissolve", "c"}, "").output, Not(HasSubstr("?")));
    EXPECT_FALSE(isThere("c"));
}

TEST_F(HandOverTest, DeletesOnlyItemsThatTheUserConfirmed) {
    make({"a", "b"});
    ASSERT_EQ(run({"feed", "a"}).status, 0);
    RawDatabase database(directories().ownData() / "defaults.db");
    database.run("CREATE TRIGGER refuse BEFORE INSERT ON defaults "
                 "BEGIN SELECT RAISE(ABORT, 'refused'); END");
    ASSERT_EQ(run({"feed", "b"}).status,
              1); // in the desktop program's memory, but not in the history
    for (const auto& names : {std::vector<std::string>{"b"}, {"a", "b"}}) {
        std::vector<std::string> arguments{"delete", "--yes"};
        arguments.insert(arguments.end(), names.begin(), names.end());
        const auto result = run(arguments);
        EXPECT_EQ(result.status, 1);
        EXPECT_THAT(result.errors, HasSubstr("b is no longer in the Bin."));
    }
    EXPECT_TRUE(recent()[1].deleted);
    EXPECT_FALSE(recent()[0].deleted);
    EXPECT_TRUE(exists(*recent()[0].trashed));
}

TEST_F(HandOverTest, StopsTheBatchAndReportsWhatWasDone) {
    make({"a", "b"});
    around.holdsThumbnails = true;
    auto command = vexmoor({"feed", "a", "b"}).start();
    ASSERT_TRUE(serveUntil([&] { return !around.held.empty(); }));
    command.signal(SIGINT);
    ASSERT_TRUE(serveUntil([&] { return service->stops == 1; }));
    around.answerThumbnails();
    const auto result = end(command);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("Stopped. Left as it was: 2 items."));
    EXPECT_TRUE(isThere("a"));
}

TEST_F(HandOverTest, LeavesReportsToTheDesktopIfItsTerminalIsClosed) {
    make({"a"});
    around.holdsThumbnails = true;
    const auto before = present();
    auto command = vexmoor({"feed", "a", "gone"}).start();
    ASSERT_TRUE(serveUntil([&] { return !around.held.empty(); }));
    command.signal(SIGHUP);
    EXPECT_EQ(end(command).signal, SIGHUP);
    ASSERT_TRUE(serveUntil([&] { return present() == before; }));
    around.answerThumbnails();
    ASSERT_TRUE(serveUntil([&] { return program->intake.batches() == 0; }));
    EXPECT_FALSE(isThere("a"));
    EXPECT_EQ(service->stops, 0);
    EXPECT_THAT(around.events, Contains("report The cauldron rejected gone"));
}

TEST_F(HandOverTest, ReportsAnUnknownResultIfTheDesktopExitsInTheMiddle) {
    make({"a"});
    around.holdsThumbnails = true;
    auto command = vexmoor({"feed", "a"}).start();
    ASSERT_TRUE(serveUntil([&] { return !around.held.empty(); }));
    leaveBus();
    const auto result = end(command);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("ended without reporting the result. See the history "
                                         "for what was done: vexmoor history."));
}

TEST_F(HandOverTest, RejectsInvalidReplies) {
    make({"a"});
    leaveBus();
    NonsenseService nonsense;
    ASSERT_TRUE(
        connection("desktop").registerObject(kPath, &nonsense, QDBusConnection::ExportAllSlots));
    ASSERT_TRUE(connection("desktop").registerService(kName));
    const auto result = run({"feed", "a"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("can't be understood"));
}

TEST_F(HandOverTest, ShowsTheDesktopsProgressOnATerminal) {
    leaveBus();
    auto desktop = connection("desktop");
    SlowService slow(desktop);
    ASSERT_TRUE(desktop.registerObject(kPath, &slow, QDBusConnection::ExportAllSlots));
    ASSERT_TRUE(desktop.registerService(kName));
    const auto result = runOnTerminal({"feed", "--mode", "dissolve", "--yes", "a"}, "");
    EXPECT_THAT(result.output, HasSubstr("Dissolving: 234 of 1,234 items · 5 MB · "));
    EXPECT_EQ(result.status, 0) << result.output;
}

TEST_F(HandOverTest, WaitsForADesktopThatIsStarting) {
    make({"a"});
    leaveBus();
    auto command = startAndMeet({"feed", "a"});
    serve();
    const auto result = end(command);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(around.events, Contains("burn 1"));
}

TEST_F(HandOverTest, DoesTheWorkItselfIfTheDesktopIsQuitting) {
    make({"a"});
    leaveBus();
    auto command = startAndMeet({"feed", "a"});
    lock.reset();
    const auto result = end(command);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(around.events, IsEmpty());
    EXPECT_FALSE(isThere("a"));
}

TEST_F(HandOverTest, CanBeInterruptedWhileWaiting) {
    make({"a"});
    leaveBus();
    auto command = startAndMeet({"feed", "a"});
    command.signal(SIGINT);
    const auto result = end(command);
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.errors, HasSubstr("Stopped while waiting for the desktop application."));
    EXPECT_TRUE(isThere("a"));
}

TEST_F(HandOverTest, ChangesNothingIfItCannotReachTheDesktop) {
    make({"a"});
    const auto without =
        vexmoor({"feed", "a"})
            .with("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (home / "none").native())
            .run();
    EXPECT_EQ(without.status, 3);
    EXPECT_THAT(without.errors, HasSubstr("the session bus that leads to it can't be reached"));
    const Path folder = home / "folder";
    std::filesystem::create_directory(folder);
    const auto gone = vexmoor({"feed", "../a"}).in(folder).removingItsFolder().run();
    EXPECT_EQ(gone.status, 3);
    EXPECT_THAT(gone.errors, HasSubstr("The current folder can't be found"));
    EXPECT_TRUE(isThere("a"));
    EXPECT_THAT(around.events, IsEmpty());
}

TEST_F(HandOverTest, LetsTheDesktopAskAndReportForMenuCommands) {
    make({"a"});
    ASSERT_EQ(run({"settings", "mode", "dissolve"}).status, 0);
    around.answer = {false, false};
    EXPECT_EQ(run({"feed", "--from-menu", "a"}).status, 3);
    around.answer = {true, false};
    EXPECT_EQ(run({"feed", "--from-menu", "a", "gone"}).status, 1);
    EXPECT_THAT(around.events,
                ElementsAre("ask Dissolve this item forever?", "ask Dissolve 2 items forever?",
                            "sizzle", "burn 1", "report The cauldron rejected gone",
                            StartsWith("notify"), StartsWith("notify")));
    EXPECT_FALSE(isThere("a"));
}

TEST_F(HandOverTest, ShowsNotificationsForMenuCommandsWithoutADesktop) {
    make({"a", "b"});
    leaveBus();
    lock.reset();
    FakeNotificationServer notifications(connection("another"));
    notifications.capabilities << "body-markup";
    const auto fed = run({"feed", "--from-menu", "a", "<gone>", "more"});
    EXPECT_EQ(fed.status, 1);
    EXPECT_FALSE(isThere("a"));
    const auto refused = run({"feed", "--from-menu", "--mode", "dissolve", "b"});
    EXPECT_EQ(refused.status, 3);
    EXPECT_THAT(refused.errors, HasSubstr("Dissolving needs a yes"));
    EXPECT_TRUE(isThere("b"));
    ASSERT_EQ(notifications.calls.size(), 2U);
    EXPECT_EQ(notifications.calls[0].title, "The cauldron rejected 2 items");
    EXPECT_EQ(notifications.calls[0].body.toStdString(),
              "&lt;gone&gt;: No such file or directory.\nmore: No such file or directory.");
    EXPECT_EQ(notifications.calls[0].hints["desktop-entry"], "org.vexmoor.Vexmoor");
    EXPECT_EQ(notifications.calls[1].title, "Nothing was fed");
    EXPECT_THAT(notifications.calls[1].body.toStdString(), HasSubstr("Nothing was touched."));
}

} // namespace
} // namespace vexmoor::test
