#include "DesktopTest.h"
#include "FileManagerWindow.h"

#include <algorithm>

namespace vexmoor {
namespace {

using namespace test;

const char* const kOne = "Dissolve this item forever?";

/// The program in dissolve mode, which asks first.
struct AlertTest : DesktopTest {
    void SetUp() override {
        DesktopTest::SetUp();
        if (IsSkipped())
            return;
        openSession();
        item = session->write("old.iso", "nobody needs it");
        session->run({VEXMOOR_PROGRAM, "settings", "mode", "dissolve"});
    }
    /// Answers the alert by that key.
    void answer(const std::string& sentence, const std::string& key) {
        ASSERT_TRUE(cauldron->alerts(sentence)) << sentence;
        session->press(key);
    }
    [[nodiscard]] bool nothingIsAsked() const {
        return eventually([&] { return !cauldron->isAlerting(); });
    }

    Path item;
};

TEST_F(AlertTest, IsAnsweredByReturnAndEscape) {
    start();
    ASSERT_EQ(cauldron->feed({item}), 0);
    answer(kOne, "Escape");
    ASSERT_TRUE(nothingIsAsked());
    EXPECT_TRUE(std::filesystem::exists(item));
    EXPECT_EQ(cauldron->history().size(), 0U);

    ASSERT_EQ(cauldron->feed({item}), 0);
    ASSERT_TRUE(cauldron->alerts(kOne));
    session->screen().keepPicture("dissolve-question");
    session->press("Return");
    ASSERT_TRUE(cauldron->records(1));
    EXPECT_FALSE(std::filesystem::exists(item));
    EXPECT_EQ(cauldron->history()[0]["mode"], "dissolve");
    EXPECT_FALSE(std::filesystem::exists(session->home() / ".local/share/Trash/files/old.iso"));
}

TEST_F(AlertTest, UsesTheUsersLanguage) {
    start({"--background"}, {{"LANGUAGE", "de"}});
    ASSERT_EQ(cauldron->feed({item}), 0);
    answer("Dieses Objekt für immer auflösen?", "Escape");
    EXPECT_TRUE(nothingIsAsked());
}

TEST_F(AlertTest, IsSuppressedEvenIfTheAnswerWasCancel) {
    start();
    ASSERT_EQ(cauldron->feed({item}), 0);
    ASSERT_TRUE(cauldron->alerts(kOne));
    const auto elements = cauldron->elements();
    const auto box = std::find_if(elements.begin(), elements.end(), [](const auto& element) {
        return element.role == "check box" && element.name == "Don't ask again";
    });
    ASSERT_NE(box, elements.end());
    session->click(box->place.center());
    session->press("Escape");
    EXPECT_TRUE(eventually([&] { return cauldron->setting("confirmDissolve") == "off"; }));
    EXPECT_TRUE(nothingIsAsked());
    EXPECT_TRUE(std::filesystem::exists(item));
    ASSERT_EQ(cauldron->feed({item}), 0);
    EXPECT_TRUE(isGone(item));
    EXPECT_FALSE(cauldron->isAlerting());
}

TEST_F(AlertTest, CountsAsNoWhenTheProgramIsAskedToQuit) {
    start();
    ASSERT_EQ(cauldron->feed({item}), 0);
    ASSERT_TRUE(cauldron->alerts(kOne));
    EXPECT_EQ(quit(), 0);
    EXPECT_TRUE(std::filesystem::exists(item));
    EXPECT_EQ(cauldron->history().size(), 0U);
}

TEST_F(AlertTest, ReportsAllFailuresWhenTheProgramIsAskedToQuit) {
    session->run({VEXMOOR_PROGRAM, "settings", "confirmDissolve", "off"});
    start();
    for (const char* name : {"seen", "waiting", "last"}) { // one batch is over before the next
        const Path missing = session->home() / name;
        EXPECT_EQ(session->command({VEXMOOR_PROGRAM, "feed", "--from-menu", missing}).run().status,
                  1);
    }
    ASSERT_TRUE(cauldron->alerts("The cauldron rejected seen"));
    EXPECT_EQ(quit(), 0);
    EXPECT_THAT(session->notifications(),
                testing::UnorderedElementsAre(testing::StartsWith("The cauldron rejected waiting"),
                                              testing::StartsWith("The cauldron rejected last")));
}

TEST_F(AlertTest, LogsFailuresOnQuitIfThereAreNoNotifications) {
    session->endNotifications();
    session->run({VEXMOOR_PROGRAM, "settings", "confirmDissolve", "off"});
    const Path log = session->home() / "log";
    auto program = session->start(
        {"sh", "-c", "exec \"$0\" --background 2>" + log.native(), VEXMOOR_DESKTOP_PROGRAM});
    ASSERT_TRUE(eventually([this] { return session->hasService(Cauldron::kName); }));
    for (const char* name : {"seen", "waiting"})
        EXPECT_EQ(session->command({VEXMOOR_PROGRAM, "feed", "--from-menu", session->home() / name})
                      .run()
                      .status,
                  1);
    program.signal(SIGTERM);
    EXPECT_EQ(program.end(), 0);
    EXPECT_THAT(contents(log),
                testing::HasSubstr("vexmoor-desktop: The cauldron rejected waiting"));
}

TEST_F(AlertTest, OpensOnTopOnTheCurrentWorkspace) {
    start({});
    ASSERT_TRUE(eventually([&] { return cauldron->statsWindow().has_value(); }));
    session->xdotool("set_num_desktops 2 set_desktop 1");
    const FileManagerWindow window(*session, DrivenFileManager::kPcmanfmQt, session->home());
    ASSERT_EQ(cauldron->feed({item}), 0);
    ASSERT_TRUE(cauldron->alerts(kOne));
    const auto alert = session->screen().find([](const SeenWindow& w) { return w.isDialog; });
    const std::string id = std::to_string(alert.value().id);
    EXPECT_EQ(session->run({"xdotool", "get_desktop_for_window", id}), "1\n");
    EXPECT_THAT(session->run({"xprop", "-id", id, "_NET_WM_STATE", "_NET_WM_ALLOWED_ACTIONS"}),
                testing::AllOf(testing::HasSubstr("_NET_WM_STATE_ABOVE"),
                               testing::Not(testing::HasSubstr("_MAXIMIZE"))));
    answer(kOne, "Escape");
    EXPECT_TRUE(nothingIsAsked());
}

TEST_F(AlertTest, AllowsFurtherDropsAndAsksAboutThemInTurn) {
    const Path things = session->home() / "Things";
    session->write("Things/one", "1");
    session->write("Things/two", "2");
    start();
    ASSERT_EQ(cauldron->feed({item}), 0);
    ASSERT_TRUE(cauldron->alerts(kOne));

    FileManagerWindow window(*session, DrivenFileManager::kPcmanfmQt, things);
    ASSERT_TRUE(window.selectAll(2));
    ASSERT_TRUE(window.dragSelection(cauldron->middle()));
    const Path missing = session->home() / "missing";
    ASSERT_EQ(cauldron->feed({missing}), 0);
    EXPECT_TRUE(std::filesystem::exists(things / "one"));
    EXPECT_TRUE(std::filesystem::exists(item));

    const auto alert = session->screen().find([](const SeenWindow& w) { return w.isDialog; });
    session->xdotool("windowactivate --sync " + std::to_string(alert.value().id));
    answer(kOne, "Return");
    answer("Dissolve 2 items forever?", "Return");
    answer(kOne, "Return");
    answer("The cauldron rejected missing", "Return");
    EXPECT_TRUE(nothingIsAsked());
    EXPECT_TRUE(cauldron->records(3));
    EXPECT_TRUE(std::filesystem::is_empty(things));
    EXPECT_FALSE(std::filesystem::exists(item));
}

} // namespace
} // namespace vexmoor
