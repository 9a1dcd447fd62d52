#include "DesktopTest.h"

#include "desktopbus/FakeService.h"
#include "desktopbus/FakeSettingsPortal.h"
#include "support/MainLoop.h"

#include <algorithm>

namespace vexmoor {
namespace {

using namespace test;

struct WalkthroughTest : DesktopTest {
    [[nodiscard]] std::optional<SeenWindow> walkthrough() const {
        return session->screen().find([](const SeenWindow& window) {
            return window.className == Cauldron::kName && window.title == "Welcome to Vexmoor";
        });
    }
    [[nodiscard]] std::optional<SeenWindow> stats() const {
        return session->screen().find([](const SeenWindow& window) {
            return window.className == Cauldron::kName && window.title == "Vexmoor" &&
                   window.isManaged && !window.isDock && !window.isDialog;
        });
    }
    /// Waits for an enabled element of that name.
    [[nodiscard]] bool shows(const std::string& name) const {
        return eventually([&] {
            const auto all = cauldron->elements();
            return std::ranges::any_of(all, [&](const AccessibleElement& element) {
                return element.isShowing && element.isEnabled && element.name == name;
            });
        });
    }
    [[nodiscard]] bool hasKeyboard() const {
        return eventually([&] {
            const auto active = session->screen().active();
            return active && active->title == "Welcome to Vexmoor";
        });
    }
    /// Presses the keys on the page with that title.
    void pressOn(const std::string& title, const std::string& keys) const {
        ASSERT_TRUE(shows(title)) << title;
        ASSERT_TRUE(hasKeyboard()) << title;
        session->press(keys);
    }
    [[nodiscard]] bool statsComesAlone() const {
        return eventually([&] { return stats() && !walkthrough(); });
    }

    static constexpr const char* kWelcome = "Welcome to Vexmoor";
    static constexpr const char* kFlames = "Let flames rise above the Dock";
    static constexpr const char* kKey = "Press Ctrl+Backspace to feed it";
    static constexpr const char* kFolders = "Let Vexmoor see your files";
};

TEST_F(WalkthroughTest, LeadsFromTheFirstStartToTheStatsWindowByReturn) {
    openSession({.onboarded = false});
    session->write("Documents/letter", "");
    session->write("Downloads/film", "");
    start({});
    ASSERT_TRUE(shows(kWelcome));
    EXPECT_FALSE(stats());
    session->screen().keepPicture("walkthrough");
    pressOn(kWelcome, "Return");
    EXPECT_TRUE(shows("Allowed")) << "the session has an accessibility bus";
    pressOn(kFlames, "Return");
    pressOn(kKey, "Return");
    ASSERT_TRUE(shows("Allow")) << "consent is requested";
    session->press("Return");
    EXPECT_TRUE(shows("Allowed"));
    pressOn(kKey, "Return");
    pressOn(kFolders, "Return");
    EXPECT_TRUE(shows("Desktop: not allowed"));
    EXPECT_TRUE(shows("Downloads: allowed"));
    pressOn(kFolders, "Return");
    EXPECT_TRUE(shows("Drop files on the cauldron, or press Ctrl+Backspace in the file manager."));
    session->screen().keepPicture("walkthrough-ready");
    pressOn("Ready", "Return");
    EXPECT_TRUE(statsComesAlone());
    EXPECT_EQ(quit(), 0);
    start({});
    EXPECT_TRUE(statsComesAlone()) << "the walkthrough is finished";
}

TEST_F(WalkthroughTest, NotifiesTheLauncherIfItIsShownFirst) {
    openSession({.onboarded = false});
    start();
    auto second = session->command(Cauldron::words({}));
    EXPECT_EQ(second.with("DESKTOP_STARTUP_ID", "launcher/1_TIME1000").run().status, 0);
    ASSERT_TRUE(hasKeyboard());
    EXPECT_THAT(
        session->run({"xprop", "-id", std::to_string(walkthrough()->id), "_NET_STARTUP_ID"}),
        testing::HasSubstr("launcher/1_TIME1000"));
}

TEST_F(WalkthroughTest, LeadsToTheSettingsAfterADenial) {
    openSession({.onboarded = false});
    start({});
    pressOn(kWelcome, "Return");
    pressOn(kFlames, "Return");
    pressOn(kKey, "Return");
    ASSERT_TRUE(shows("Allow")) << "consent is requested";
    session->press("Escape");
    pressOn(kKey, "Return");
    EXPECT_TRUE(shows("Dissolve forever"));
}

TEST_F(WalkthroughTest, CanBeSkippedByKeyboard) {
    openSession({.onboarded = false});
    start({});
    pressOn(kWelcome, "Return");
    pressOn(kFlames, "Return");
    pressOn(kKey, "Tab space");
    pressOn(kFolders, "Tab space");
    EXPECT_TRUE(shows("Drop files on the cauldron.")) << "only dropping works so far";
    pressOn("Ready", "Return");
    EXPECT_TRUE(statsComesAlone());
}

TEST_F(WalkthroughTest, IsShownAgainUntilFinishedButNotInTheBackground) {
    openSession({.onboarded = false});
    start();
    EXPECT_FALSE(walkthrough()) << "started in the background";
    EXPECT_EQ(cauldron->feed({}), 0);
    ASSERT_TRUE(hasKeyboard());
    cauldron->program().signal(SIGKILL);
    EXPECT_TRUE(cauldron->program().end());
    const Path item = session->write("item", "fed with the first start");
    start({item});
    EXPECT_TRUE(isGone(item));
    ASSERT_TRUE(hasKeyboard());
    session->press("Escape");
    ASSERT_TRUE(eventually([&] { return !walkthrough(); }));
    EXPECT_FALSE(stats());
    EXPECT_EQ(cauldron->feed({}), 0);
    EXPECT_TRUE(statsComesAlone());
    EXPECT_EQ(quit(), 0);
    start({});
    EXPECT_TRUE(hasKeyboard());
}

TEST_F(WalkthroughTest, OpensFromTheMenuAndShowsTheCurrentState) {
    openSession();
    start({});
    ASSERT_TRUE(statsComesAlone());
    for (const bool again : {false, true}) {
        ASSERT_TRUE(eventually([&] {
            const auto active = session->screen().active();
            return active && active->title == "Vexmoor";
        }));
        ASSERT_TRUE(eventually([&] { // the window may not have the keyboard focus yet
            session->press("alt+v");
            return std::ranges::any_of(cauldron->elements(), [](const AccessibleElement& element) {
                return element.isShowing && element.name == "Set Up Permissions…";
            });
        }));
        const auto all = cauldron->elements();
        const auto item = std::ranges::find_if(all, [](const AccessibleElement& element) {
            return element.isShowing && element.name == "Set Up Permissions…";
        });
        session->click(item->place.center());
        pressOn(kWelcome, "Return");
        pressOn(kFlames, "Return");
        pressOn(kKey, "Tab space");
        ASSERT_TRUE(shows(kFolders));
        EXPECT_TRUE(shows(again ? "Desktop: not allowed" : "Not asked yet"));
        pressOn(kFolders, "Return");
        EXPECT_TRUE(again || shows("Desktop: not allowed"));
        session->press("Escape");
        EXPECT_TRUE(statsComesAlone());
    }
}

TEST_F(WalkthroughTest, ShowsThePropertiesOfAnUnreadableFolder) {
    openSession({.onboarded = false});
    FakeService manager(session->bus(), "org.freedesktop.FileManager1",
                        [](const QDBusMessage& call) { return call.createReply(); });
    start({});
    pressOn(kWelcome, "Return");
    pressOn(kFlames, "Return");
    pressOn(kKey, "Tab space");
    pressOn(kFolders, "Return");
    const auto link = cauldron->element("Look at the missing folders");
    ASSERT_TRUE(link);
    session->click(link->place.center());
    EXPECT_TRUE(eventuallyInLoop([&] { return manager.calls.contains("ShowItemProperties"); }));
}

TEST_F(WalkthroughTest, FollowsTheLightOrDarkTheme) {
    const QString appearance = "org.freedesktop.appearance";
    openSession();
    FakeSettingsPortal portal(session->bus(), {{appearance, {{"color-scheme", 1U}}}});
    start({});
    const auto becomesDark = [&](bool dark) {
        return eventuallyInLoop([&] {
            const auto window = stats();
            if (!window)
                return false;
            const QPoint place = window->frame.bottomRight() - QPoint(12, 12);
            return (session->screen().picture().pixelColor(place).lightness() < 100) == dark;
        });
    };
    EXPECT_TRUE(becomesDark(true));
    session->screen().keepPicture("stats-dark");
    portal.set(appearance, "color-scheme", 2U);
    EXPECT_TRUE(becomesDark(false));
    portal.set(appearance, "color-scheme", 1U);
    EXPECT_TRUE(becomesDark(true));
}

} // namespace
} // namespace vexmoor
