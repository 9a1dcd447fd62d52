#include "DesktopTest.h"
#include "FileManagerWindow.h"

#include "desktopbus/FakeService.h"
#include "desktopbus/FakeSettingsPortal.h"
#include "sound/SizzleRenderer.h"
#include "support/MainLoop.h"
#include "support/RawDatabase.h"

#include "skins/Skin.h"

#include <QDBusUnixFileDescriptor>

#include <algorithm>
#include <chrono>
#include <unistd.h>

// Connections between the program's parts: each test fails if one of them is missing.

namespace vexmoor {
namespace {

using namespace test;
using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::StartsWith;

struct WiringTest : DesktopTest {
    void SetUp() override {
        DesktopTest::SetUp();
        if (!IsSkipped())
            openSession();
    }
    /// Changes a setting by the command line, which the running program carries out.
    void set(const std::string& setting, const std::string& value) const {
        session->run({VEXMOOR_PROGRAM, "settings", setting, value});
    }
    void act(const char* action) const {
        session->call(Cauldron::application(), "ActivateAction",
                      {action, QVariantList{}, QVariantMap{}});
    }
    [[nodiscard]] bool feeds(const std::string& name) const {
        const Path item = session->write(name, name);
        return cauldron->feed({item}) == 0 && isGone(item);
    }
    [[nodiscard]] int onTheTile(const std::vector<QRgb>& colours) const {
        return countOf(session->screen().picture().copy(cauldron->tile().value().frame), colours);
    }
    [[nodiscard]] bool tileShows(const std::vector<QRgb>& colours, bool shows) const {
        return eventually([&] { return (onTheTile(colours) > 0) == shows; });
    }
    [[nodiscard]] bool statsWindowComes() const {
        return eventually([&] { return cauldron->statsWindow().has_value(); });
    }
    [[nodiscard]] Path database() const {
        return session->home() / ".local/share/vexmoor/defaults.db";
    }
};

TEST_F(WiringTest, ReportsItemsThatAreNotOnThisComputer) {
    start({"--background", session->write("local", "local"), "https://example.org/"});
    EXPECT_TRUE(cauldron->alerts("The cauldron did not take everything"));
    EXPECT_TRUE(cauldron->records(1)) << "the local item is fed";
}

TEST_F(WiringTest, AppliesSettingsAtOnceAndAfterARestart) {
    const std::vector<QRgb> badge{qRgb(0xE5, 0x48, 0x4D)};
    start();
    ASSERT_TRUE(tileShows(badge, false));
    set("mode", "dissolve");
    set("confirmDissolve", "off");
    EXPECT_TRUE(tileShows(badge, true));
    ASSERT_TRUE(feeds("dissolved"));
    ASSERT_TRUE(cauldron->records(1));
    EXPECT_EQ(cauldron->history()[0]["mode"], "dissolve");
    EXPECT_EQ(quit(), 0);
    start();
    EXPECT_TRUE(tileShows(badge, true));
    set("mode", "bin");
    EXPECT_TRUE(tileShows(badge, false));
}

TEST_F(WiringTest, AppliesTheSettingsOfFlamesAndSound) {
    const Pixel acid = Skin::iron().acidLight;
    const std::vector<QRgb> light{qRgb(acid.r, acid.g, acid.b)};
    const Samples sizzle = samplesOf(SizzleRenderer::render(), 0.6);
    start();
    set("escapeDock", "off");
    set("sound", "off");
    ASSERT_TRUE(session->sound().recordsAnother(0.1));
    const int idle = onTheTile(light);
    ASSERT_TRUE(feeds("quiet"));
    act("test-flames");
    EXPECT_TRUE(eventually([&] { return onTheTile(light) > idle + 120; }))
        << "burns inside the tile";
    EXPECT_FALSE(cauldron->flames());
    ASSERT_TRUE(session->sound().recordsAnother(1));
    EXPECT_THAT(session->sound().recorded(), Each(0));

    set("escapeDock", "on");
    set("sound", "on");
    act("test-flames");
    EXPECT_TRUE(cauldron->burns());
    EXPECT_EQ(cauldron->history().size(), 1U);
    EXPECT_TRUE(
        eventually([&] { return beginning(session->sound().recorded(), sizzle).has_value(); }));
}

TEST_F(WiringTest, ShowsTheSelectedSkinAtOnceAndAfterARestart) {
    const Pixel body = Skin::copper().bodyColour;
    const std::vector<QRgb> copper{qRgb(body.r, body.g, body.b)};
    start();
    std::vector<Path> items;
    for (int i = 0; i < 10; ++i)
        items.push_back(session->write("item " + std::to_string(i), "x"));
    ASSERT_EQ(cauldron->feed(items), 0);
    ASSERT_TRUE(cauldron->records(10));
    ASSERT_TRUE(tileShows(copper, false));
    set("skin", "copper");
    EXPECT_TRUE(tileShows(copper, true));
    EXPECT_EQ(quit(), 0);
    start();
    EXPECT_TRUE(tileShows(copper, true));
}

TEST_F(WiringTest, OpensTheBinForALauncher) {
    const Path gio = session->write("programs/gio", "#!/bin/sh\necho \"$@\" > \"$HOME/opened\"\n");
    std::filesystem::permissions(gio, std::filesystem::perms::owner_all);
    start({"--background"}, {{"PATH", gio.parent_path().native() + ":/usr/bin:/bin"}});
    act("open-bin");
    const Path opened = session->home() / "opened";
    EXPECT_TRUE(eventually(
        [&] { return std::filesystem::exists(opened) && contents(opened) == "open trash:///\n"; }));
    act("settings");
    EXPECT_TRUE(statsWindowComes());
}

TEST_F(WiringTest, PutsBackTheNewestBatchThatIsStillInTheBin) {
    start();
    ASSERT_TRUE(feeds("old") && cauldron->records(1));
    EXPECT_EQ(quit(), 0);
    start();
    ASSERT_TRUE(feeds("new") && cauldron->records(2));
    session->run({VEXMOOR_PROGRAM, "put-back", cauldron->history()[0]["id"]});
    ASSERT_TRUE(cauldron->records(1, "restored"));
    cauldron->putBack();
    EXPECT_TRUE(cauldron->records(2, "restored")) << "from an earlier run";
}

TEST_F(WiringTest, RaisesItsWindowAndMovesItIntoTheScreen) {
    start({});
    ASSERT_TRUE(statsWindowComes());
    const std::string id = std::to_string(cauldron->statsWindow()->id);
    const auto comesToTheFront = [&] {
        EXPECT_EQ(cauldron->feed({}), 0);
        return eventually([&] {
            const auto active = session->screen().active();
            return active && std::to_string(active->id) == id;
        });
    };
    session->xdotool("windowminimize --sync " + id);
    ASSERT_TRUE(eventually([&] { return !cauldron->statsWindow(); }));
    EXPECT_TRUE(comesToTheFront());
    const FileManagerWindow other(*session, DrivenFileManager::kPcmanfmQt, session->home());
    EXPECT_TRUE(comesToTheFront());
    session->xdotool("windowmove --sync " + id + " 1200 700");
    EXPECT_TRUE(comesToTheFront());
    EXPECT_TRUE(eventually(
        [&] { return QRect(0, 0, 1280, 800).contains(cauldron->statsWindow()->frame); }));
}

TEST_F(WiringTest, RecordsAndReportsAnInterruptedBatchAtItsStart) {
    std::vector<std::string> words;
    for (const char* const name : {"one", "two", "three"})
        words.push_back(session->write(name, name));
    auto killed = session->start(Cauldron::words(words), {{"LD_PRELOAD", KILL_AFTER_LIBRARY},
                                                          {"KILL_AFTER", "renameat2 2"}});
    EXPECT_EQ(killed.end(), -1);

    start({"--background"});
    EXPECT_TRUE(cauldron->records(2));
    EXPECT_TRUE(std::filesystem::exists(words[2]));
    EXPECT_TRUE(eventually([&] {
        const auto posted = session->notifications();
        return std::any_of(posted.begin(), posted.end(), [](const std::string& text) {
            return text.starts_with("An earlier batch was cut off: ");
        });
    }));
    EXPECT_THAT(session->notifications(), Contains(StartsWith("Achievement: First Offering")));
    cauldron->putBack();
    EXPECT_TRUE(cauldron->records(2, "restored"));
    for (const std::string& item : words)
        EXPECT_TRUE(std::filesystem::exists(item)) << item;
}

TEST_F(WiringTest, ReportsAStoreThatCannotBeReadOrWritten) {
    std::filesystem::remove_all(database().parent_path());
    session->write(".local/share/vexmoor/defaults.db", std::string(8192, 'x'));
    start();
    EXPECT_TRUE(cauldron->alerts("The history was damaged"));
    session->press("Return");
    ASSERT_TRUE(eventually([&] { return !cauldron->isAlerting(); }));
    EXPECT_EQ(quit(), 0);

    RawDatabase other(database());
    other.run("INSERT INTO defaults VALUES ('onboarded', 'bool', 1)");
    start({"--background"});
    other.run("CREATE TRIGGER refuse BEFORE INSERT ON defaults "
              "BEGIN SELECT RAISE(ABORT, 'refused'); END");
    const auto isReported = [this] {
        EXPECT_TRUE(cauldron->alerts("The history couldn't be saved"));
        session->press("Return");
        return eventually([this] { return !cauldron->isAlerting(); });
    };
    ASSERT_EQ(cauldron->feed({}), 0);
    ASSERT_TRUE(statsWindowComes());
    ASSERT_TRUE(isReported()) << "the window's position is stored";
    const auto set = session->command({VEXMOOR_PROGRAM, "settings", "sound", "off"}).run();
    EXPECT_NE(set.status, 0);
    EXPECT_THAT(set.errors, HasSubstr("The setting could not be saved"));
    EXPECT_FALSE(cauldron->isAlerting()) << "the command line reports it";
    session->xdotool("windowsize --sync " + std::to_string(cauldron->statsWindow()->id) +
                     " 400 600");
    ASSERT_TRUE(isReported());
    ASSERT_TRUE(feeds("unrecorded") && isReported());
    other.run("DROP TRIGGER refuse");
    cauldron->putBack();
    EXPECT_TRUE(cauldron->records(1, "restored"));
    EXPECT_TRUE(std::filesystem::exists(session->home() / "unrecorded"));
}

TEST_F(WiringTest, ReportsPartialDissolvesAndADamagedJournalAtItsStart) {
    set("mode", "dissolve");
    set("confirmDissolve", "off");
    for (const char* const name : {"Things/one", "Things/two", "Things/three"})
        session->write(name, name);
    auto killed =
        session->start(Cauldron::words({session->home() / "Things"}),
                       {{"LD_PRELOAD", KILL_AFTER_LIBRARY}, {"KILL_AFTER", "unlinkat 2"}});
    EXPECT_EQ(killed.end(), -1);
    start();
    EXPECT_TRUE(cauldron->alerts("The cauldron rejected Things"));
    EXPECT_EQ(quit(), 0);

    session->write(".local/share/vexmoor/journal/current", std::string(8192, 'x'));
    start();
    EXPECT_TRUE(cauldron->alerts("The journal of an earlier batch couldn't be settled"));
}

TEST_F(WiringTest, ReopensTheWindowAtItsPositionByAClickOnANotification) {
    start({});
    ASSERT_TRUE(statsWindowComes());
    const std::string window = std::to_string(cauldron->statsWindow()->id);
    session->xdotool("windowsize --sync " + window + " 400 600 windowmove --sync " + window +
                     " 700 50");
    const QRect frame = cauldron->statsWindow()->frame;
    EXPECT_TRUE(eventually([&] {
        const auto stored =
            RawDatabase(database()).run("SELECT value FROM defaults WHERE key = 'window.Vexmoor'");
        return stored.size() == 1 && stored[0].ends_with(" 400 600");
    }));
    EXPECT_EQ(quit(), 0);
    start();
    ASSERT_TRUE(feeds("item"));
    EXPECT_TRUE(eventually([&] {
        session->run({"dunstctl", "action", "0"});
        return cauldron->statsWindow().has_value();
    }));
    EXPECT_TRUE(eventually([&] { return cauldron->statsWindow()->frame == frame; }));
}

TEST_F(WiringTest, PassesTheTokenOfAClickedNotificationToItsWindow) {
    const QString name = "org.freedesktop.Notifications";
    const QString path = "/org/freedesktop/Notifications";
    session->endNotifications();
    FakeService server(session->bus(), name, [](const QDBusMessage& call) {
        if (call.member() == QStringLiteral("Notify"))
            return call.createReply(1U);
        return call.createReply(QStringList{"actions"});
    });
    start();
    session->screen().watchLaunches();
    ASSERT_TRUE(feeds("item"));
    EXPECT_TRUE(eventuallyInLoop([&] {
        server.emitSignal(path, name, "ActivationToken", {1U, "notification/1_TIME1000"});
        server.emitSignal(path, name, "ActionInvoked", {1U, "default"});
        return cauldron->statsWindow().has_value();
    }));
    EXPECT_TRUE(eventually([&] {
        return session->screen().launchMessages().find("remove: ID=\"notification/1_TIME1000\"") !=
               std::string::npos;
    }));
    EXPECT_THAT(session->run({"xprop", "-id", std::to_string(cauldron->statsWindow()->id),
                              "_NET_STARTUP_ID"}),
                HasSubstr("notification/1_TIME1000"));
}

TEST_F(WiringTest, StopsAnimatingIfTheDesktopReducesMotion) {
    const QString group = "org.gnome.desktop.interface";
    FakeSettingsPortal portal(session->bus(), {{group, {{"enable-animations", false}}}});
    start();
    const auto moves = [&] {
        constexpr auto kLong = std::chrono::milliseconds(500); // several frames of the pot
        const QImage first = session->screen().picture();
        const auto begin = std::chrono::steady_clock::now();
        while (std::chrono::steady_clock::now() - begin < kLong) {
            QCoreApplication::processEvents();
            if (session->screen().picture() != first)
                return true;
        }
        return false;
    };
    EXPECT_TRUE(eventuallyInLoop([&] { return !moves(); }));
    portal.set(group, "enable-animations", true);
    EXPECT_TRUE(eventuallyInLoop(moves));
    portal.set(group, "enable-animations", false);
    EXPECT_TRUE(eventuallyInLoop([&] { return !moves(); }));
}

TEST_F(WiringTest, QuitsBeforeAShutdownAndDelaysItWhileWorking) {
    int inhibited = 0;
    FakeService login(session->bus(), QStringLiteral("org.freedesktop.login1"),
                      [&](const QDBusMessage& call) {
                          auto answer = call.createReply();
                          if (call.member() == QStringLiteral("Inhibit")) {
                              ++inhibited;
                              answer << QVariant::fromValue(QDBusUnixFileDescriptor(STDERR_FILENO));
                          }
                          return answer;
                      });
    start({"--background"}, {{"DBUS_SYSTEM_BUS_ADDRESS", session->bus().name().toStdString()}});
    ASSERT_TRUE(feeds("item"));
    EXPECT_TRUE(eventuallyInLoop([&] { return inhibited > 0; }));
    login.emitSignal(QStringLiteral("/org/freedesktop/login1"),
                     QStringLiteral("org.freedesktop.login1.Manager"),
                     QStringLiteral("PrepareForShutdown"), {true});
    EXPECT_EQ(cauldron->program().end(), 0);
}

} // namespace
} // namespace vexmoor
