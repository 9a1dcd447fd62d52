#include "DesktopTest.h"
#include "FileManagerWindow.h"
#include "finder/x11/DeviceKeyboard.h"

#include "base/SqliteUserDefaults.h"
#include "finder/Automation.h"

#include <algorithm>
#include <ranges>

namespace vexmoor {
namespace {

using namespace test;

/// Ctrl+Backspace in a file manager that shows a folder with files.
struct KeyTest : DesktopTest {
    void openDesk(const char* consent = "granted") {
        openSession({.sound = false});
        if (consent != nullptr)
            store(Automation::kKey, std::string(consent));
        keyboard = std::make_unique<DeviceKeyboard>(session->display().name());
        session->write(things / "first.txt", "1");
        session->write(things / "second ünïcode.txt", "2");
    }
    void store(std::string_view key, const UserDefaults::Value& value) const {
        const Path data = session->home() / ".local/share/vexmoor";
        std::filesystem::create_directories(data);
        auto defaults = SqliteUserDefaults::open(
            data / "defaults.db", SqliteUserDefaults::Access::readWrite, [](const Error&) {});
        defaults.value()->assign(key, value);
    }
    void openFileManager(const DrivenFileManager& kind) {
        manager.reset(); // otherwise it would handle the second start
        manager = std::make_unique<FileManagerWindow>(*session, kind, session->home() / things);
    }
    /// Opens the file manager before the program, whose window then takes the focus.
    void openFirst(const DrivenFileManager& kind) {
        openFileManager(kind);
        start({});
        ASSERT_TRUE(eventually([this] {
            const auto active = session->screen().active();
            return active && active->className == Cauldron::kName;
        }));
    }
    void feedByKey() { keyboard->press({"Control_L", "BackSpace"}); }
    void undoByKey() { keyboard->press({"Control_L", "z"}); }

    /// Expects the key to feed another item, which shows that earlier key presses have been
    /// handled.
    void expectTheKeyToFeedNow(std::size_t recordsAfterwards) {
        session->write(things / "last.txt", "3");
        ASSERT_TRUE(manager->selectAll(treeOf(session->home() / things).size()));
        feedByKey();
        EXPECT_TRUE(cauldron->records(recordsAfterwards));
    }
    [[nodiscard]] std::string clipboard(const std::string& target = "STRING") const {
        return session->command({"xclip", "-out", "-selection", "clipboard", "-target", target})
            .run()
            .output;
    }
    void copy(const Path& file, const std::string& target = "STRING") const {
        session->run({"sh", "-c", R"(xclip -in -selection clipboard -target "$1" "$0" >/dev/null)",
                      file, target});
    }
    [[nodiscard]] Tree tree() const { return treeOf(session->home() / things); }

    const Path things = "Things";
    std::unique_ptr<DeviceKeyboard> keyboard;
    std::unique_ptr<FileManagerWindow> manager;
};

struct KeyCase {
    const char* name;
    const DrivenFileManager* manager;
    enum class Way {
        captured,
        capturedAsItRunsAlready, ///< runs before the program, so it binds the key only at its next
                                 ///< start
        bound,
    } way;

    friend void PrintTo(const KeyCase& one, std::ostream* out) { *out << one.name; }
};

struct FileManagerKeyTest : KeyTest, testing::WithParamInterface<KeyCase> {
    void SetUp() override {
        KeyTest::SetUp();
        ASSERT_TRUE(Command::exists(GetParam().manager->program));
        openDesk();
    }
    void open() {
        if (GetParam().way == KeyCase::Way::capturedAsItRunsAlready) {
            openFirst(*GetParam().manager);
            return;
        }
        start();
        if (GetParam().way == KeyCase::Way::bound) {
            ASSERT_TRUE(eventually([this] { return keyStatus() == "installed"; }));
        }
        openFileManager(*GetParam().manager);
    }
    [[nodiscard]] std::string keyStatus() const {
        const auto status = nlohmann::json::parse(session->run(
            {VEXMOOR_PROGRAM, "integrate", "status", GetParam().manager->program, "--json"}));
        return status.at("integrations").at(0).at("key").at("status");
    }
};

TEST_P(FileManagerKeyTest, FeedsTheSelectionAndCtrlZPutsItBack) {
    const Tree before = tree();
    open();
    ASSERT_TRUE(manager->selectAll(2));
    copy(session->write("copied", "what the user copied"));

    feedByKey();
    ASSERT_TRUE(cauldron->records(2));
    EXPECT_TRUE(tree().empty());
    EXPECT_EQ(clipboard(), "what the user copied");
    session->screen().keepPicture(std::string("key-") + GetParam().name);

    undoByKey();
    EXPECT_TRUE(cauldron->records(2, "restored"));
    EXPECT_EQ(tree(), before);
}

TEST_P(FileManagerKeyTest, LeavesTheKeyToTextFields) {
    open();
    for (const char* keys : {GetParam().manager->rename, "ctrl+l", GetParam().manager->search}) {
        ASSERT_TRUE(manager->selectAll(2));
        // At a user's speed: text fields get the key shortly after the selection has changed.
        session->xdotool(std::string("key Escape Home sleep 0.2 key ") + keys + " sleep 0.5");
        feedByKey();
        session->press("Escape Escape");
    }
    openFileManager(*GetParam().manager);
    expectTheKeyToFeedNow(3);
}

constexpr KeyCase kAlways[] = {
    {"ThunarThatRunsAlready", &DrivenFileManager::kThunar, KeyCase::Way::capturedAsItRunsAlready},
    {"Thunar", &DrivenFileManager::kThunar, KeyCase::Way::bound},
    {"PcmanfmQt", &DrivenFileManager::kPcmanfmQt, KeyCase::Way::captured},
};
/// Run by `./test all`, which installs these file managers.
constexpr KeyCase kMore[] = {
    {"NautilusThatRunsAlready", &DrivenFileManager::kNautilus,
     KeyCase::Way::capturedAsItRunsAlready},
    {"Nautilus", &DrivenFileManager::kNautilus, KeyCase::Way::bound},
    {"NemoThatRunsAlready", &DrivenFileManager::kNemo, KeyCase::Way::capturedAsItRunsAlready},
    {"Nemo", &DrivenFileManager::kNemo, KeyCase::Way::bound},
    {"Caja", &DrivenFileManager::kCaja, KeyCase::Way::captured},
    {"Dolphin", &DrivenFileManager::kDolphin, KeyCase::Way::captured},
};
const auto kName = [](const auto& one) { return std::string(one.param.name); };

INSTANTIATE_TEST_SUITE_P(, FileManagerKeyTest, testing::ValuesIn(kAlways), kName);
INSTANTIATE_TEST_SUITE_P(All, FileManagerKeyTest, testing::ValuesIn(kMore), kName);

struct KeyRulesTest : KeyTest {
    void open() {
        openDesk();
        start();
        openFileManager(DrivenFileManager::kPcmanfmQt);
    }
    /// Returns the file in which Thunar's key is bound.
    [[nodiscard]] Path boundKey() const { return session->home() / ".config/Thunar/accels.scm"; }
    [[nodiscard]] bool isBound(bool expected) const {
        return eventually([&] { return std::filesystem::exists(boundKey()) == expected; });
    }
    /// Repeats the key, because alerts ignore keys at first.
    void answer(const char* key) const {
        EXPECT_TRUE(eventually([&] {
            session->press(key);
            return !cauldron->isAlerting();
        }));
    }
};

TEST_F(KeyRulesTest, FeedsOnceForAHeldKeyAndNothingWithoutASelection) {
    open();
    session->click(manager->middle());
    feedByKey();
    session->press("ctrl+a ctrl+c"); // the user copies while the program queries the selection
    ASSERT_TRUE(manager->selectAll(2));
    EXPECT_EQ(tree().size(), 2u);
    keyboard->hold("Control_L");
    keyboard->hold("BackSpace");
    ASSERT_TRUE(cauldron->records(2));
    session->write(things / "next.txt", "after the selection");
    session->xdotool("sleep 1"); // the X server repeats the key 25 times per second
    keyboard->release("BackSpace");
    keyboard->release("Control_L");
    EXPECT_EQ(tree().size(), 1u);
    expectTheKeyToFeedNow(4);
}

TEST_F(KeyRulesTest, BeepsAtCtrlZWhileNothingCanBePutBackYet) {
    open();
    session->run({VEXMOOR_PROGRAM, "settings", "mode", "dissolve"});
    ASSERT_TRUE(manager->selectAll(2));
    feedByKey();
    ASSERT_TRUE(cauldron->alerts("Dissolve 2 items forever?"));
    session->xdotool("windowactivate --sync " + std::to_string(manager->id()));
    session->screen().watchBells();
    undoByKey();
    EXPECT_TRUE(eventually([this] { return session->screen().hasBeeped(); }));
    EXPECT_EQ(tree().size(), 2u);
}

TEST_F(KeyRulesTest, LeavesCtrlZToTheFileManagerAfterAClick) {
    open();
    ASSERT_TRUE(manager->selectAll(2));
    feedByKey();
    ASSERT_TRUE(cauldron->records(2));
    session->click(manager->middle());
    undoByKey();
    expectTheKeyToFeedNow(3);
    EXPECT_TRUE(cauldron->records(0, "restored"));
}

TEST_F(KeyRulesTest, LeavesTheKeyToOtherProgramsAndReleasesItWhenKilled) {
    open();
    const Path log = session->home() / "typed";
    const auto keyReaches = [&](std::size_t times) {
        return eventually([&] {
            feedByKey();
            const std::string typed = contents(log);
            std::size_t count = 0;
            for (auto at = typed.find("BackSpace"); at != std::string::npos;
                 at = typed.find("BackSpace", at + 1))
                ++count;
            return count >= times;
        });
    };
    const auto editor = session->start({"sh", "-c", "exec stdbuf -oL xev > " + log.native()});
    ASSERT_TRUE(eventually([&] {
        return session->command({"xdotool", "getactivewindow", "getwindowname"}).run().output ==
               "Event Tester\n";
    }));
    EXPECT_TRUE(keyReaches(2));
    EXPECT_EQ(tree().size(), 2u);

    session->xdotool("windowactivate --sync " + std::to_string(manager->id()));
    ASSERT_TRUE(manager->selectAll(2));
    cauldron->program().kill();
    session->press("F2"); // opens a text field
    keyboard->press({"Control_L", "BackSpace"});
    EXPECT_EQ(tree().size(), 2u);
    session->xdotool("search --name Tester windowactivate --sync");
    EXPECT_TRUE(keyReaches(4));
}

TEST_F(KeyRulesTest, RestoresTheClipboardWithAllTargetsAndLongContents) {
    open();
    std::string picture = "\x89PNG\r\n";
    for (int i = 0; picture.size() < 3'000'000; ++i)
        picture += std::to_string(i) + '\0';
    ASSERT_TRUE(manager->selectAll(2));
    copy(session->write("picture", picture), "image/png");
    feedByKey();
    ASSERT_TRUE(cauldron->records(2));
    EXPECT_TRUE(clipboard("image/png") == picture);
    EXPECT_EQ(clipboard("x-kde-passwordManagerHint"), "secret");
}

TEST_F(KeyRulesTest, AsksForConsentOnceAndExplainsOnceAfterADenial) {
    openDesk(nullptr);
    start();
    openFileManager(DrivenFileManager::kPcmanfmQt);
    ASSERT_TRUE(manager->selectAll(2));
    feedByKey();
    ASSERT_TRUE(cauldron->alerts("“Vexmoor” wants access to control the file manager."));
    session->screen().keepPicture("consent");
    EXPECT_FALSE(std::filesystem::exists(boundKey()));
    answer("Return");
    EXPECT_TRUE(isBound(true));
    EXPECT_TRUE(cauldron->records(2)) << "Return allows it, and the selection is fed";

    quit();
    store(Automation::kKey, std::string("denied"));
    start();
    session->write(things / "another.txt", "3");
    openFileManager(DrivenFileManager::kPcmanfmQt);
    ASSERT_TRUE(manager->selectAll(1));
    feedByKey();
    ASSERT_TRUE(cauldron->alerts("Vexmoor can't see what's selected in the file manager"));
    session->screen().keepPicture("refused-consent");
    answer("Return");
    EXPECT_TRUE(eventually([this] { return cauldron->statsWindow().has_value(); }));
    EXPECT_TRUE(isBound(false));
    EXPECT_EQ(tree().size(), 1u);

    std::optional<QPoint> allow; // in the settings tab
    ASSERT_TRUE(eventually([&] {
        for (const AccessibleElement& element : cauldron->elements())
            if (element.isShowing && element.name == "Allow")
                allow = element.place.center();
        return allow.has_value();
    }));
    session->click(*allow);
    EXPECT_TRUE(isBound(true));
}

TEST_F(KeyRulesTest, FollowsTheSettingAndFeedsTheSelectionFromTheTilesMenu) {
    open();
    EXPECT_TRUE(isBound(true));
    session->run({VEXMOOR_PROGRAM, "settings", "captureFinderDelete", "off"});
    EXPECT_TRUE(isBound(false));
    ASSERT_TRUE(manager->selectAll(2));
    feedByKey();
    cauldron->feedSelection();
    ASSERT_TRUE(cauldron->records(2));
    EXPECT_TRUE(tree().empty());
    session->run({VEXMOOR_PROGRAM, "settings", "captureFinderDelete", "on"});
    EXPECT_TRUE(isBound(true));
    expectTheKeyToFeedNow(3);
}

TEST_F(KeyRulesTest, ReportsAFileManagerThatReportsNoFocus) {
    openDesk();
    openFileManager(DrivenFileManager::kPcmanfmQt);
    start();
    ASSERT_TRUE(manager->selectAll(2));
    feedByKey();
    EXPECT_TRUE(eventually([this] {
        return testing::Value(session->notifications(),
                              testing::Contains(testing::StartsWith(
                                  "Ctrl+Backspace doesn't work in this file manager")));
    }));
    EXPECT_EQ(tree().size(), 2u);
}

TEST_F(KeyRulesTest, ReportsThatAnotherProgramHasGrabbedTheKey) {
    openDesk();
    const auto other = x11::XConnection::open(session->display().name().c_str());
    xcb_grab_key(other->get(), 0, other->root(), XCB_MOD_MASK_CONTROL, XCB_GRAB_ANY,
                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    other->sync();
    start();
    openFileManager(DrivenFileManager::kPcmanfmQt);
    EXPECT_TRUE(eventually([this] {
        return testing::Value(
            session->notifications(),
            testing::Contains(testing::StartsWith("Another program uses Ctrl+Backspace")));
    }));
}

TEST_F(KeyRulesTest, FindsTheFocusOfAFileManagerThatWasFocusedBeforeTheStart) {
    openDesk();
    openFileManager(DrivenFileManager::kThunar);
    ASSERT_TRUE(manager->selectAll(2));
    start();
    const auto isFed = [this] { return cauldron->history().size() == 2; };
    EXPECT_TRUE(eventually([&] {
        feedByKey(); // the file manager gets the key until the focus is found
        constexpr int kLooks = 20;
        return std::ranges::any_of(std::views::iota(0, kLooks), [&](int) { return isFed(); });
    }));
}

/// On a keyboard without Latin letters no key produces the "c" of the copy command.
struct LayoutKeyTest : KeyTest, testing::WithParamInterface<const DrivenFileManager*> {};

TEST_P(LayoutKeyTest, FeedsTheSelectionWithoutLatinLettersOnTheKeyboard) {
    openDesk();
    start();
    openFileManager(*GetParam());
    ASSERT_TRUE(manager->selectAll(2));
    session->run({"setxkbmap", "ru"});
    feedByKey();
    ASSERT_TRUE(cauldron->records(2));
    EXPECT_TRUE(tree().empty());
}

INSTANTIATE_TEST_SUITE_P(
    , LayoutKeyTest, testing::Values(&DrivenFileManager::kThunar, &DrivenFileManager::kPcmanfmQt),
    [](const auto& one) {
        return std::string(one.param == &DrivenFileManager::kThunar ? "Thunar" : "PcmanfmQt");
    });

} // namespace
} // namespace vexmoor
