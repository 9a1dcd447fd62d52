#include "DesktopTest.h"
#include "SessionManager.h"

#include "desktopbus/FakeService.h"
#include "intake/WriterLock.h"
#include "support/MainLoop.h"
#include "support/RawDatabase.h"

#include <QDBusConnectionInterface>

#include <algorithm>

namespace vexmoor {
namespace {

using namespace test;

struct StartTest : DesktopTest {
    void SetUp() override {
        DesktopTest::SetUp();
        if (IsSkipped())
            return;
        openSession();
        for (const char* name : {"one", "two ü", "three"})
            items.push_back(session->write(name, name));
    }
    /// True if the program shows no window except the tile.
    [[nodiscard]] bool hasOnlyTheTile() const {
        return cauldron->tile() && !cauldron->statsWindow() && !cauldron->isAlerting();
    }
    std::vector<Path> items;
};

TEST_F(StartTest, ForwardsASecondStartToTheFirst) {
    start();
    EXPECT_EQ(cauldron->feed({items[0], items[1]}), 0);
    EXPECT_TRUE(cauldron->records(2));
    EXPECT_TRUE(hasOnlyTheTile());
    EXPECT_EQ(session->command(Cauldron::words({"--background"})).run().status, 0);
    EXPECT_TRUE(hasOnlyTheTile());

    const std::string probe = session->command(Cauldron::words({"--probe"})).run().output;
    EXPECT_THAT(probe, testing::Not(testing::HasSubstr("nil"))) << "the tile is found";

    EXPECT_EQ(cauldron->feed({}), 0);
    EXPECT_TRUE(eventually([&] { return cauldron->statsWindow().has_value(); }));
    EXPECT_EQ(quit(), 0);
    EXPECT_FALSE(session->hasService(Cauldron::kName));
}

TEST_F(StartTest, NotifiesTheLauncherOfASecondStart) {
    start();
    session->screen().watchLaunches();
    const auto launch = [&](const std::string& id, const std::vector<std::string>& arguments) {
        auto second = session->command(Cauldron::words(arguments));
        EXPECT_EQ(second.with("DESKTOP_STARTUP_ID", id).run().status, 0);
        return eventually([&] {
            const std::string end = "remove: ID=\"" + id + "\"" + '\0';
            return session->screen().launchMessages().find(end) != std::string::npos;
        });
    };
    EXPECT_TRUE(launch("a-launcher/with a long name/1_TIME1000", {items[0]}));
    EXPECT_TRUE(launch("launcher/2_TIME2000", {}));
    ASSERT_TRUE(eventually([&] { return cauldron->statsWindow().has_value(); }));
    EXPECT_THAT(session->run({"xprop", "-id", std::to_string(cauldron->statsWindow()->id),
                              "_NET_STARTUP_ID"}),
                testing::HasSubstr("launcher/2_TIME2000"));
}

TEST_F(StartTest, FeedsItsArgumentsAndOpensNoWindow) {
    start({items[0], "file://" + items[2].string()});
    EXPECT_TRUE(cauldron->records(2));
    EXPECT_TRUE(hasOnlyTheTile());
    EXPECT_EQ(quit(), 0);
    start({});
    EXPECT_TRUE(eventually([&] { return cauldron->statsWindow().has_value(); }));
    EXPECT_EQ(cauldron->history().size(), 2U) << "the request was kept";
}

TEST_F(StartTest, LosesNoRequestWhileTheFirstInstanceQuits) {
    std::size_t left = 0;
    for (const Path& item : items) {
        start();
        const auto onTheBus = [&] {
            return session->bus().interface()->registeredServiceNames().value().size();
        };
        const auto before = onTheBus();
        cauldron->program().signal(SIGSTOP);
        cauldron->program().signal(SIGTERM);
        auto second = session->start(Cauldron::words({item}));
        EXPECT_TRUE(eventually([&] { return onTheBus() > before; }));
        cauldron->program().signal(SIGCONT);
        EXPECT_EQ(cauldron->program().end(), 0);
        EXPECT_TRUE(eventually([&] {
            const auto told =
                session->notifications(); // the first instance reports items that it left
            return !std::filesystem::exists(item) ||
                   static_cast<std::size_t>(
                       std::count_if(told.begin(), told.end(), [](const std::string& text) {
                           return text.find("as it was") != std::string::npos;
                       })) > left;
        }));
        left += std::filesystem::exists(item) ? 1 : 0;
        second.signal(SIGTERM);
        EXPECT_TRUE(second.end());
        ASSERT_TRUE(eventually([&] { return !cauldron->tile(); }))
            << "otherwise the next start would find it";
    }
}

TEST_F(StartTest, IsStartedByTheBusToOpenFiles) {
    session->call(Cauldron::application(), "Open",
                  {QStringList{"file://" + QString::fromStdString(items[0])}, QVariantMap{}});
    EXPECT_TRUE(isGone(items[0]));
    EXPECT_TRUE(session->hasService(Cauldron::kName));
    const auto tile = session->screen().find([](const SeenWindow& w) { return w.isDock; });
    EXPECT_TRUE(tile);
    session->call(Cauldron::application(), "Activate", {QVariantMap{}});
    EXPECT_TRUE(eventually([&] {
        return session->screen()
            .find([](const SeenWindow& w) { return w.title == "Vexmoor" && !w.isDock; })
            .has_value();
    }));
}

TEST_F(StartTest, HasADesktopEntryAndAnIcon) {
    start({});
    ASSERT_TRUE(eventually([&] { return cauldron->statsWindow().has_value(); }));
    const std::string id = std::to_string(cauldron->statsWindow()->id);
    EXPECT_THAT(session->run({"xprop", "-id", id, "_NET_WM_ICON"}), testing::HasSubstr("Icon ("));
    EXPECT_THAT(
        contents(Path(VEXMOOR_PACKAGING) / "org.vexmoor.Vexmoor.desktop"),
        testing::HasSubstr("\nStartupWMClass=" + cauldron->tile().value().className + "\n"));
}

/// Starts that fail or wait before the tile is shown.
struct RefusedStartTest : StartTest {
    [[nodiscard]] bool shows(const std::string& sentence) const {
        return eventuallyInLoop([&] {
            const auto active = session->screen().active();
            if (!active || !active->isDialog)
                return false;
            const auto all = AccessibleTree(session->bus()).elementsOf("Vexmoor");
            return std::ranges::any_of(all, [&](const AccessibleElement& element) {
                return element.isShowing && element.name == sentence;
            });
        });
    }
    void begin() {
        program.reset(new BackgroundProgram(session->start(Cauldron::words({items[0]}))));
    }
    /// Presses the key in the dialog with that sentence, which ends the start.
    void expectRefusal(const std::string& sentence, const char* key = "Return") {
        ASSERT_TRUE(shows(sentence)) << sentence;
        session->press(key);
        constexpr int kRefused = 3;
        EXPECT_EQ(program->end(), kRefused);
        EXPECT_TRUE(std::filesystem::exists(items[0]));
    }
    const Path data = ".local/share/vexmoor";
    std::unique_ptr<BackgroundProgram> program;
};

TEST_F(RefusedStartTest, ReportsThatTheHistoryCannotBeOpened) {
    RawDatabase(session->home() / data / "defaults.db").run("PRAGMA user_version = 99");
    begin();
    expectRefusal("Vexmoor can't open its history");
}

TEST_F(RefusedStartTest, WaitsForACommandUntilItIsCancelled) {
    auto command = WriterLock::tryTake(session->home() / data / WriterLock::kFileName,
                                       WriterLock::Role::command);
    ASSERT_TRUE(command && *command);
    begin();
    ASSERT_TRUE(shows("Vexmoor is still at work"));
    session->press("Escape");
    expectRefusal("Vexmoor did not start");
    begin();
    ASSERT_TRUE(shows("Vexmoor is still at work"));
    command->reset();
    EXPECT_TRUE(isGone(items[0]));
}

TEST_F(RefusedStartTest, ReportsThatItRunsInAnotherSession) {
    start({"--background"}, {{"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"}});
    begin();
    expectRefusal("Vexmoor is running already");
}

TEST_F(RefusedStartTest, ReportsThatTheRunningProgramDoesNotAnswer) {
    const FakeService running(session->bus(), Cauldron::kName, [](const QDBusMessage& call) {
        return call.createErrorReply(QDBusError::InternalError, "broken");
    });
    begin();
    expectRefusal("But it does not answer.");
}

TEST_F(RefusedStartTest, ReplacesAProgramThatIsQuitting) {
    auto ending = std::make_unique<FakeService>(
        session->bus(), Cauldron::kName, [](const QDBusMessage& call) {
            return call.createErrorReply(QStringLiteral("org.vexmoor.Error.Ending"), "ending");
        });
    begin();
    ASSERT_TRUE(eventuallyInLoop([&] { // the start shows its dialog and keeps calling the service
        const auto active = session->screen().active();
        return active && active->isDialog;
    }));
    ending.reset();
    EXPECT_TRUE(isGone(items[0]));
}

struct EndCase {
    const char* name;
    void (*end)(DesktopSession& session, const BackgroundProgram& program, SessionManager& manager);
    int status;

    friend void PrintTo(const EndCase& ending, std::ostream* out) { *out << ending.name; }
};

class EndTest : public StartTest, public testing::WithParamInterface<EndCase> {};

TEST_P(EndTest, DuringABatchKeepsEverythingOnRecord) {
    constexpr int kMany = 20000;
    const Path bin = session->home() / ".local/share/Trash/files";
    std::vector<std::string> words;
    for (int i = 0; i < kMany; ++i)
        words.push_back(session->write("Many/" + std::to_string(i), std::to_string(i)));
    const Tree before = treeOf(session->home() / "Many");
    SessionManager manager;
    start(words, {{"SESSION_MANAGER", manager.address()}});
    ASSERT_TRUE(eventually([&] {
        std::error_code none;
        return !std::filesystem::is_empty(bin, none) && !none;
    }));
    GetParam().end(*session, cauldron->program(), manager);
    EXPECT_EQ(cauldron->program().end(), GetParam().status);
    const auto left = treeOf(session->home() / "Many").size();
    const auto done = treeOf(bin).size();
    EXPECT_GT(left, 0U);
    EXPECT_EQ(done + left, before.size());

    const auto answer =
        nlohmann::json::parse(session->run({VEXMOOR_PROGRAM, "put-back", "--json"}));
    EXPECT_EQ(answer["done"].size(), done);
    EXPECT_EQ(treeOf(session->home() / "Many"), before);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, EndTest,
    testing::Values(EndCase{"BySignal",
                            [](DesktopSession&, const BackgroundProgram& program, SessionManager&) {
                                program.signal(SIGTERM);
                            },
                            0},
                    EndCase{"ByTheSessionManager",
                            [](DesktopSession&, const BackgroundProgram&, SessionManager& manager) {
                                manager.endSession();
                            },
                            0},
                    EndCase{"ByTheDisplaysDeath",
                            [](DesktopSession& session, const BackgroundProgram&, SessionManager&) {
                                session.display().die();
                            },
                            1}),
    [](const auto& ending) { return std::string(ending.param.name); });

} // namespace
} // namespace vexmoor
