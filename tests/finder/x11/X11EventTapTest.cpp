#include "finder/linux/X11EventTap.h"

#include "DeviceKeyboard.h"
#include "TypedWindow.h"

#include "base/PlainQueue.h"
#include "finder/FinderHotkey.h"
#include "support/Command.h"
#include "support/ManualTimer.h"
#include "support/XSession.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <mutex>

namespace vexmoor {
namespace {

using namespace test;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

/// The tap on its own display, with a handler that records events and swallows the key.
struct X11EventTapTest : testing::Test {
    void SetUp() override {
        if (const auto program = XSession::missing())
            GTEST_SKIP() << *program << " is not installed";
        session.emplace();
        keyboard = std::make_unique<DeviceKeyboard>(std::getenv("DISPLAY"));
    }
    /// Activates a window of that class.
    void openWindow(const std::string& className) {
        window = std::make_unique<TypedWindow>(className);
        ASSERT_TRUE(window->isActive());
    }
    bool install() {
        return tap.install([this](const InputEvent& event) {
            const std::lock_guard lock(mutex);
            seen.push_back(event);
            return event.canBeSwallowed ? Verdict::swallow : Verdict::pass;
        });
    }
    /// Returns the events up to the last key, which reaches the window, and the keys that the
    /// window received.
    [[nodiscard]] std::vector<std::string> typedThen(const char* last) {
        keyboard->press({last});
        return window->typedUntil(last);
    }
    [[nodiscard]] std::vector<InputEvent> events() {
        const std::lock_guard lock(mutex);
        return std::exchange(seen, {});
    }
    static void run(std::vector<std::string> words) {
        const auto result = Command(std::move(words)).run();
        ASSERT_EQ(result.status, 0) << result.errors;
    }

    std::optional<XSession> session;
    std::unique_ptr<DeviceKeyboard> keyboard;
    std::unique_ptr<TypedWindow> window;
    std::atomic<bool> bindsKeyItself = false;
    std::atomic<int> heldReports = 0;
    std::mutex mutex;
    std::vector<InputEvent> seen;
    X11EventTap tap{{.bindsKeyItself = [this](const auto&, auto) { return bindsKeyItself.load(); },
                     .keyIsHeld = [this] { ++heldReports; },
                     .fileManagerActivated = [](auto) {},
                     .userActed = [] {}}};
};

const auto kIsKey = [](const InputEvent& event) {
    return event.keyCode == InputEvent::kBackspace && event.flags == InputEvent::kCommand;
};

TEST_F(X11EventTapTest, CapturesTheKeyOnlyInFileManagers) {
    openWindow("Thunar");
    ASSERT_TRUE(install());
    keyboard->press({"Control_L", "BackSpace"});
    EXPECT_THAT(typedThen("x"), ElementsAre("x"));
    const auto first = events();
    ASSERT_FALSE(first.empty());
    EXPECT_TRUE(kIsKey(first.front()));
    EXPECT_FALSE(first.front().isRepeat);

    for (const char* lock : {"Caps_Lock", "Num_Lock"})
        keyboard->press({lock});
    keyboard->press({"Control_L", "BackSpace"});
    EXPECT_THAT(typedThen("x"), ElementsAre("x")) << "with lock keys on";

    keyboard->press({"Control_L", "Shift_L", "BackSpace"});
    keyboard->press({"BackSpace"});
    EXPECT_THAT(typedThen("x"), ElementsAre("BackSpace", "BackSpace", "x"));

    openWindow("Editor");
    EXPECT_TRUE(eventually([this] { // the tap releases its grabs after the switch
        keyboard->press({"Control_L", "BackSpace"});
        return typedThen("x") == std::vector<std::string>{"BackSpace", "x"};
    }));
}

TEST_F(X11EventTapTest, DistinguishesRepeatsFromPresses) {
    openWindow("Thunar");
    ASSERT_TRUE(install());
    keyboard->hold("Control_L");
    for (int i = 0; i < 2; ++i) {
        keyboard->hold("BackSpace");
        ASSERT_TRUE(eventually([this] {
            const std::lock_guard lock(mutex);
            return seen.size() >= 3;
        })) << "the server did not repeat a held key";
        keyboard->release("BackSpace");
        keyboard->press({"a"}); // after all repeats
        EXPECT_THAT(window->typedUntil("a"), ElementsAre("a"));
        const auto all = events();
        EXPECT_FALSE(all.front().isRepeat);
        EXPECT_TRUE(std::all_of(all.begin() + 1, all.end(), [](const InputEvent& event) {
            return event.isRepeat || event.keyCode == InputEvent::kOtherKey;
        }));
    }
}

TEST_F(X11EventTapTest, ReportsOtherKeysAndClicksButNotModifiersOrWheel) {
    openWindow("Thunar");
    ASSERT_TRUE(install());
    keyboard->press({"Shift_L"});
    run({"xdotool", "click", "4", "click", "1", "click", "2", "click", "3"});
    keyboard->press({"x"});
    ASSERT_TRUE(eventually([this] {
        const std::lock_guard lock(mutex);
        return !seen.empty() && seen.back().type == InputEvent::Type::keyDown;
    }));
    std::vector<InputEvent::Type> types;
    for (const auto& event : events())
        types.push_back(event.type);
    EXPECT_THAT(types,
                ElementsAre(InputEvent::Type::leftMouseDown, InputEvent::Type::otherMouseDown,
                            InputEvent::Type::rightMouseDown, InputEvent::Type::keyDown));
}

TEST_F(X11EventTapTest, FollowsTheKeyboardLayout) {
    openWindow("Thunar");
    ASSERT_TRUE(install());
    tap.captureUndoKey(true);
    struct Case {
        const char* layouts;
        const char* undoKey; ///< named by the first layout
    };
    for (const auto& [layouts, undoKey] :
         {Case{"us", "z"}, Case{"de", "z"}, Case{"us,ru", "z"}, Case{"ru,us", "Cyrillic_ya"}}) {
        SCOPED_TRACE(layouts);
        run({"setxkbmap", layouts});
        (void)events();
        keyboard->press({"Control_L", "BackSpace"});
        keyboard->press({"Control_L", undoKey});
        ASSERT_TRUE(eventually([this] {
            const std::lock_guard lock(mutex);
            return !seen.empty() && seen.back().characters == "z";
        }));
        EXPECT_TRUE(kIsKey(events().front()));
    }
}

TEST_F(X11EventTapTest, DoesNotCaptureAKeyThatTheFileManagerBinds) {
    bindsKeyItself = true;
    openWindow("Thunar");
    ASSERT_TRUE(install());
    keyboard->press({"Control_L", "BackSpace"});
    EXPECT_THAT(typedThen("x"), ElementsAre("BackSpace", "x"));
    ASSERT_TRUE(eventually([this] {
        const std::lock_guard lock(mutex);
        return !seen.empty();
    }));
    const auto all = events();
    EXPECT_TRUE(kIsKey(all.front()));
    EXPECT_FALSE(all.front().canBeSwallowed);
    bindsKeyItself = false;
    tap.refresh();
    ASSERT_TRUE(eventually([this] {
        keyboard->press({"Control_L", "BackSpace"});
        return typedThen("x") == std::vector<std::string>{"x"};
    }));
}

TEST_F(X11EventTapTest, ReportsAForeignGrabOnceAndCapturesTheKeyWhenFree) {
    openWindow("Editor");
    auto other = x11::XConnection::open();
    for (const auto key : {XCB_GRAB_ANY}) {
        xcb_grab_key(other->get(), 0, other->root(), XCB_MOD_MASK_CONTROL, key, XCB_GRAB_MODE_ASYNC,
                     XCB_GRAB_MODE_ASYNC);
        other->sync();
    }
    ASSERT_TRUE(install());
    openWindow("Thunar");
    EXPECT_TRUE(eventually([this] { return heldReports == 1; }));
    other.reset();
    EXPECT_TRUE(eventually([this] {
        keyboard->press({"Control_L", "BackSpace"});
        const auto all = events();
        return std::any_of(all.begin(), all.end(), kIsKey);
    }));
    EXPECT_EQ(heldReports, 1);
}

/// The test never runs tasks posted to the main thread, as if it were blocked.
TEST_F(X11EventTapTest, DoesNotBlockInputWhileTheMainThreadIsBusy) {
    struct Surroundings : FocusedElement, FinderSelection {
        bool isText() override { return false; }
        void query(Completion) override {}
    } around;
    PlainQueue main;
    openWindow("Thunar");
    FinderHotkey hotkey({tap, tap, around, around, main, std::make_unique<ManualTimer>(),
                         [] { return true; }, [] {}});
    hotkey.start();
    for (int i = 0; i < 3; ++i) {
        keyboard->press({"Control_L", "BackSpace"});
        EXPECT_THAT(typedThen("x"), ElementsAre("x"));
        keyboard->press({"Control_L", "BackSpace"});
        keyboard->press({"Control_L", "z"});
        EXPECT_THAT(typedThen("x"), ElementsAre("x"));
        hotkey.stop();
        keyboard->press({"Control_L", "BackSpace"});
        EXPECT_THAT(typedThen("x"), ElementsAre("BackSpace", "x"));
        hotkey.start();
    }
}

} // namespace
} // namespace vexmoor
