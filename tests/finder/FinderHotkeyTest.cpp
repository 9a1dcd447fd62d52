#include "finder/FinderHotkey.h"

#include "base/PlainQueue.h"
#include "support/ManualTimer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;
using testing::ElementsAre;
using Type = InputEvent::Type;

struct FakeSystem : EventTap, Workspace, FocusedElement, FinderSelection {
    bool install(Handler wanted) override {
        ++attempts;
        if (canInstall)
            handler = std::move(wanted);
        return canInstall;
    }
    void enable() override { ++enabled; }
    void remove() override { handler = nullptr; }
    void captureUndoKey(bool captures) override { capturesUndoKey = captures; }
    std::optional<std::string> frontmostApplication() override { return frontmost; }
    bool isText() override { return focusIsText; }
    void query(Completion completion) override { queries.push_back(std::move(completion)); }

    Handler handler;
    bool canInstall = true;
    int attempts = 0;
    int enabled = 0;
    bool capturesUndoKey = false;
    std::optional<std::string> frontmost = std::string(Workspace::kFinder);
    bool focusIsText = false;
    std::vector<Completion> queries;
};

struct FinderHotkeyTest : testing::Test {
    FinderHotkeyTest()
        : hotkey({system, system, system, system, main, std::unique_ptr<ManualTimer>(timer),
                  [this] { return isTrusted; }, [this] { happened.push_back("beep"); }}) {
        hotkey.onTrigger = [this](const Selection& selection) {
            happened.push_back("fed " + std::to_string(selection.items.size()));
        };
        hotkey.onAutomationDenied = [this] { happened.push_back("denied"); };
        hotkey.onUndo = [this] { happened.push_back("undo"); };
        hotkey.start();
    }
    /// Returns whether the event is swallowed, and runs the tasks that it posted.
    bool swallows(const InputEvent& event) {
        const bool swallowed = system.handler(event) == Verdict::swallow;
        main.runUntilEmpty();
        return swallowed;
    }
    void answer(const SelectionResult& result) {
        const auto queries = std::exchange(system.queries, {});
        for (const auto& completion : queries)
            completion(result);
    }

    FakeSystem system;
    PlainQueue main;
    ManualTimer* timer = new ManualTimer;
    bool isTrusted = true;
    std::vector<std::string> happened;
    FinderHotkey hotkey;
};

InputEvent key(std::int64_t code, std::uint64_t flags, std::string characters = {}) {
    InputEvent event;
    event.keyCode = code;
    event.flags = flags;
    event.characters = std::move(characters);
    return event;
}
const InputEvent kFeed = key(InputEvent::kBackspace, InputEvent::kCommand);
const InputEvent kUndo = key(InputEvent::kZ, InputEvent::kCommand, "z");
const InputEvent kOther = key(InputEvent::kOtherKey, 0);

InputEvent repeated(InputEvent event) {
    event.isRepeat = true;
    return event;
}
InputEvent passing(InputEvent event) {
    event.canBeSwallowed = false;
    return event;
}
InputEvent mouse(Type type) {
    InputEvent event;
    event.type = type;
    return event;
}

TEST_F(FinderHotkeyTest, CapturesTheKeyOnlyInFileViewsWithExactlyCommand) {
    constexpr std::uint64_t kCapsLock = 0x10000;
    struct Case {
        const char* what;
        InputEvent event;
        std::optional<std::string> frontmost = std::string(Workspace::kFinder);
        bool focusIsText = false;
        bool isTaken = false;
    };
    const Case cases[] = {
        {"the key", kFeed, "com.apple.finder", false, true},
        {"with Caps Lock", key(51, InputEvent::kCommand | kCapsLock), "com.apple.finder", false,
         true},
        {"with Shift", key(51, InputEvent::kCommand | InputEvent::kShift)},
        {"with Option", key(51, InputEvent::kCommand | InputEvent::kOption)},
        {"with Control", key(51, InputEvent::kCommand | InputEvent::kControl)},
        {"alone", key(51, 0)},
        {"another key", key(InputEvent::kOtherKey, InputEvent::kCommand)},
        {"in another application", kFeed, "org.example.Editor"},
        {"without any application", kFeed, std::nullopt},
        {"in a text field", kFeed, "com.apple.finder", true},
        {"bound by the file manager itself", passing(kFeed)},
        {"Ctrl+Z that follows nothing", kUndo},
        {"a repeat of a key that passed", repeated(kFeed)},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        system.frontmost = one.frontmost;
        system.focusIsText = one.focusIsText;
        EXPECT_EQ(swallows(one.event), one.isTaken);
        EXPECT_EQ(system.queries.size(), one.isTaken ? 1u : 0u);
        EXPECT_EQ(hotkey.undoArmed(), one.isTaken);
        answer(Selection());
        swallows(kOther);
    }
}

TEST_F(FinderHotkeyTest, FeedsTheSelectionOncePerQuery) {
    EXPECT_TRUE(swallows(kFeed));
    EXPECT_TRUE(swallows(repeated(kFeed)));
    EXPECT_TRUE(swallows(kFeed));
    EXPECT_EQ(system.queries.size(), 1u);
    answer(Selection{{"/a", "/b"}, 0});
    EXPECT_THAT(happened, ElementsAre("fed 2"));
    EXPECT_TRUE(swallows(kFeed));
    answer(Selection());
    EXPECT_THAT(happened, ElementsAre("fed 2", "fed 0"));
}

TEST_F(FinderHotkeyTest, CapturesTheUndoKeyOnlyDirectlyAfterTheKey) {
    struct Case {
        const char* what;
        std::vector<InputEvent> between;
        InputEvent event;
        bool isTaken;
    };
    const Case cases[] = {
        {"at once", {}, kUndo, true},
        {"after repeats", {repeated(kFeed)}, kUndo, true},
        {"capital", {}, key(InputEvent::kZ, InputEvent::kCommand, "Z"), true},
        {"after a click", {mouse(Type::leftMouseDown)}, kUndo, false},
        {"after a right click", {mouse(Type::rightMouseDown)}, kUndo, false},
        {"after another click", {mouse(Type::otherMouseDown)}, kUndo, false},
        {"after another key", {kOther}, kUndo, false},
        {"with Shift", {}, key(6, InputEvent::kCommand | InputEvent::kShift, "z"), false},
        {"another letter", {}, key(6, InputEvent::kCommand, "y"), false},
        {"a second time", {kUndo}, kUndo, false},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        EXPECT_TRUE(swallows(kFeed));
        answer(Selection());
        EXPECT_TRUE(system.capturesUndoKey);
        for (const auto& event : one.between)
            swallows(event);
        happened.clear();
        EXPECT_EQ(swallows(one.event), one.isTaken);
        EXPECT_EQ(happened.size(), one.isTaken ? 1u : 0u);
        EXPECT_FALSE(system.capturesUndoKey);
    }
    EXPECT_TRUE(swallows(kFeed));
    system.focusIsText = true;
    EXPECT_FALSE(swallows(kUndo)) << "focus in a text field";
    system.focusIsText = false;
    swallows(kFeed);
    hotkey.disarm();
    EXPECT_FALSE(swallows(kUndo)) << "the batch cannot be undone";
}

TEST_F(FinderHotkeyTest, CapturesTheUndoKeyAfterAMenuCommandTriggeredByTheKey) {
    EXPECT_FALSE(hotkey.fedByMenuCommand());
    swallows(passing(kFeed));
    EXPECT_TRUE(hotkey.fedByMenuCommand());
    EXPECT_TRUE(swallows(kUndo));
    for (const auto& between : {passing(kOther), mouse(Type::leftMouseDown)}) {
        swallows(passing(kFeed));
        swallows(between);
        EXPECT_FALSE(hotkey.fedByMenuCommand());
        EXPECT_FALSE(swallows(kUndo));
    }
}

TEST_F(FinderHotkeyTest, ReportsADenialOnceAndBeepsForOtherFailures) {
    for (const auto error : {SelectionError::failed, SelectionError::notPermitted,
                             SelectionError::notPermitted, SelectionError::failed}) {
        EXPECT_TRUE(swallows(kFeed));
        answer(error);
        EXPECT_FALSE(hotkey.undoArmed());
    }
    EXPECT_THAT(happened, ElementsAre("beep", "denied", "beep", "beep"));
}

TEST_F(FinderHotkeyTest, BecomesLiveWhenPossibleAndStops) {
    EXPECT_TRUE(hotkey.isLive());
    swallows(kFeed);
    hotkey.stop();
    EXPECT_FALSE(system.handler);
    EXPECT_FALSE(hotkey.undoArmed());
    isTrusted = false;
    hotkey.start();
    EXPECT_EQ(system.attempts, 1) << "no attempt without accessibility permission";
    EXPECT_EQ(timer->seconds, 2.0);
    isTrusted = true;
    system.canInstall = false;
    timer->fire();
    EXPECT_FALSE(hotkey.isLive());
    system.canInstall = true;
    timer->fire();
    EXPECT_TRUE(hotkey.isLive());
    EXPECT_FALSE(timer->fire);
    swallows(mouse(Type::tapDisabledByTimeout));
    swallows(mouse(Type::tapDisabledByUserInput));
    EXPECT_EQ(system.enabled, 2);
}

} // namespace
} // namespace vexmoor
