#include "DesktopTest.h"

#include "base/SqliteUserDefaults.h"

#include <algorithm>
#include <ranges>
#include <utility>

namespace vexmoor {
namespace {

using namespace test;

/// The main menu of the built program, by keyboard.
struct MainMenuTest : DesktopTest {
    void SetUp() override {
        DesktopTest::SetUp();
        if (!IsSkipped())
            openSession({.sound = false});
    }
    /// Sends the keys to the window with that title when it is active.
    void pressIn(const std::string& title, const std::string& keys) const {
        ASSERT_TRUE(eventually([&] {
            const auto active = session->screen().active();
            return active && active->className == Cauldron::kName && active->title == title;
        })) << title;
        session->press(keys);
    }
    [[nodiscard]] std::optional<SeenWindow> window(const std::string& title) const {
        return session->screen().find([&](const SeenWindow& seen) {
            return seen.isManaged && !seen.isDock && seen.title == title;
        });
    }
    [[nodiscard]] bool isOpen(const std::string& title, bool open = true) const {
        return eventually([&] { return window(title).has_value() == open; });
    }
    [[nodiscard]] bool hasMenu() const {
        const auto menu = session->screen().find([](const SeenWindow& seen) {
            return !seen.isManaged && seen.className == Cauldron::kName;
        });
        return menu.has_value();
    }
    static constexpr int kLooks = 600; ///< a key pressed again too early closes the menu
    /// Opens a menu by its letter and selects the entry at that index.
    void choose(const std::string& letter, int place) const {
        ASSERT_TRUE(eventually([&] {
            // Press again if needed: a new window may not have the keyboard focus yet.
            pressIn("Vexmoor", "alt+" + letter);
            return std::ranges::any_of(std::views::iota(0, kLooks), [&](int) { return hasMenu(); });
        }));
        std::string keys;
        for (int i = 0; i < place; ++i)
            keys += "Down ";
        ASSERT_TRUE(eventually([&] {
            // Press again if needed: a new menu may not have grabbed the keyboard yet.
            session->press(std::exchange(keys, {}) + "Return");
            return std::ranges::any_of(std::views::iota(0, kLooks),
                                       [&](int) { return !hasMenu(); });
        }));
    }
};

TEST_F(MainMenuTest, WorksInAllItsWindows) {
    start({});
    choose("v", 0);
    ASSERT_TRUE(isOpen("About Vexmoor"));
    pressIn("About Vexmoor", "ctrl+comma");
    pressIn("Vexmoor", "ctrl+w");
    EXPECT_TRUE(isOpen("Vexmoor", false));
    pressIn("About Vexmoor", "ctrl+comma");
    EXPECT_TRUE(isOpen("Vexmoor"));
    pressIn("Vexmoor", "ctrl+h");
    EXPECT_TRUE(isOpen("Vexmoor", false));
    EXPECT_TRUE(isOpen("About Vexmoor", false));
    ASSERT_EQ(cauldron->feed({}), 0);
    choose("v", 0);
    EXPECT_TRUE(isOpen("About Vexmoor")) << "opens again";
    pressIn("About Vexmoor", "ctrl+w");
    EXPECT_TRUE(isOpen("About Vexmoor", false));
    choose("v", 3);
    pressIn("Welcome to Vexmoor", "ctrl+comma");
    choose("v", 3);
    pressIn("Welcome to Vexmoor", "ctrl+w");
    EXPECT_TRUE(isOpen("Welcome to Vexmoor", false));
    choose("v", 1);
    EXPECT_TRUE(cauldron->alerts("Check for Updates"));
    session->press("Return");
    pressIn("Vexmoor", "ctrl+q");
    EXPECT_EQ(cauldron->program().end(), 0);
}

TEST_F(MainMenuTest, UndoesAFedBatch) {
    const Path item = session->write("one", "1");
    start({});
    ASSERT_EQ(cauldron->feed({item}), 0);
    ASSERT_TRUE(cauldron->records(1));
    pressIn("Vexmoor", "ctrl+z");
    EXPECT_TRUE(cauldron->records(1, "restored"));
    EXPECT_TRUE(std::filesystem::exists(item));
}

TEST_F(MainMenuTest, HasADebugMenuIfEnabled) {
    const Path data = session->home() / ".local/share/vexmoor";
    std::filesystem::create_directories(data);
    {
        auto defaults = SqliteUserDefaults::open(
            data / "defaults.db", SqliteUserDefaults::Access::readWrite, [](const Error&) {});
        defaults.value()->assign("debugMenu", true);
    }
    const auto unlocks = [this](bool all) {
        return eventually([&] {
            return (session->command({VEXMOOR_PROGRAM, "settings", "skin", "gold"}).run().status ==
                    0) == all;
        });
    };
    start({});
    ASSERT_TRUE(isOpen("Vexmoor"));
    EXPECT_TRUE(unlocks(false));
    choose("d", 0);
    EXPECT_TRUE(unlocks(true));
    choose("d", 1);
    EXPECT_TRUE(unlocks(false));
}

} // namespace
} // namespace vexmoor
