#include "ui/Onboarding.h"

#include "base/Text.h"

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using FolderAccess::Folder;
using Page = Onboarding::Page;
using Facts = Onboarding::Facts;
using KeyWay = Onboarding::KeyWay;
using testing::ElementsAre;

const FolderAccess::Readable kAll{
    {Folder::desktop, true}, {Folder::documents, true}, {Folder::downloads, true}};
const FolderAccess::Readable kTwo{
    {Folder::desktop, true}, {Folder::documents, false}, {Folder::downloads, true}};

struct OnboardingTest : testing::Test {
    Onboarding& start(Page page = Page::welcome) {
        onboarding.emplace(Onboarding::Ports{
            .facts = [this] { return facts; },
            .askForAutomation =
                [this](auto answered) {
                    calls.emplace_back("ask");
                    answer = std::move(answered);
                },
            .foldersWereAsked = [this] { return foldersWereAsked; },
            .probeFolders =
                [this](auto completion) {
                    calls.emplace_back("probe");
                    probed = std::move(completion);
                },
            .openAccessibilitySettings = [this] { calls.emplace_back("accessibility"); },
            .openAutomationSettings = [this] { calls.emplace_back("automation"); },
            .openFolderSettings =
                [this](Folder folder) { calls.emplace_back(FolderAccess::toRawValue(folder)); },
            .finish = [this] { calls.emplace_back("finish"); },
        });
        onboarding->onChange = [this] { ++changes; };
        while (onboarding->page() != page)
            onboarding->next();
        changes = 0;
        return *onboarding;
    }
    [[nodiscard]] std::vector<std::string> buttons() const {
        const auto secondary = onboarding->secondaryTitle();
        return secondary ? std::vector{*secondary, onboarding->primaryTitle()}
                         : std::vector{onboarding->primaryTitle()};
    }

    Facts facts;
    bool foldersWereAsked = false;
    std::vector<std::string> calls;
    std::function<void()> answer;
    std::function<void(const FolderAccess::Readable&)> probed;
    int changes = 0;
    std::optional<Onboarding> onboarding;
};

using Tick = Onboarding::Tick;

/// Returns the texts as displayed.
std::vector<std::string> shown(std::vector<std::string> texts) {
    for (auto& each : texts)
        each = text(each);
    return texts;
}

TEST_F(OnboardingTest, HasFivePagesThatCanBeSkipped) {
    using Picture = Onboarding::Picture;
    Onboarding& walk = start();
    for (const auto& [page, picture] :
         {std::pair(Page::welcome, Picture::demo),
          std::pair(Page::accessibility, Picture::settingsRow),
          std::pair(Page::automation, Picture::dialog), std::pair(Page::folders, Picture::dialog),
          std::pair(Page::ready, Picture::demo)}) {
        EXPECT_EQ(walk.page(), page);
        EXPECT_EQ(walk.picture(), picture);
        EXPECT_EQ(walk.pictureText().empty(), picture == Picture::demo);
        EXPECT_THAT(calls, testing::IsEmpty());
        walk.next();
    }
    EXPECT_THAT(calls, ElementsAre("finish"));
    EXPECT_EQ(walk.page(), Page::ready);
    EXPECT_EQ(changes, 4);
}

TEST_F(OnboardingTest, DescribesThePermissionsOfEachSession) {
    const Tick kAllowed{true, "Allowed", {}};
    const Tick kNotYet{false, "Not allowed yet", {}};
    const auto with = [](Tick tick, const std::string& note) {
        tick.note = note;
        return Onboarding::Status{.tick = tick};
    };
    constexpr auto kGranted = AutomationStatus::granted;
    constexpr auto kNotAsked = AutomationStatus::notAsked;
    constexpr auto kDenied = AutomationStatus::denied;
    const std::string kAlso = text("Also needed for ⌘⌫ in Finder.");
    const std::string kNeeds = "Needs Accessibility from the previous step too.";
    const std::string kOff = "The key is turned off in the settings.";
    const Onboarding::Status kDeclined{
        .line = text("Declined. Turn on Finder under Vexmoor in Automation.")};
    const Onboarding::Status kNoKey{.line = "No installed file manager supports "
                                            "Ctrl+Backspace."};
    const struct {
        Page page;
        Facts facts;
        Onboarding::Status status;
        std::vector<std::string> buttons;
    } kCases[] = {
        {Page::accessibility, {}, with(kNotYet, kAlso), {"Skip", "Open System Settings…"}},
        {Page::accessibility, {.accessible = true}, with(kAllowed, kAlso), {"Continue"}},
        {Page::accessibility,
         {.key = KeyWay::bound},
         {.tick = kNotYet},
         {"Skip", "Open System Settings…"}},
        {Page::automation, {}, with(kNotYet, kNeeds), {"Skip", "Allow…"}},
        {Page::automation, {.accessible = true}, {.tick = kNotYet}, {"Skip", "Allow…"}},
        {Page::automation, {.automation = kGranted}, with(kAllowed, kNeeds), {"Continue"}},
        {Page::automation, {true, kGranted}, {.tick = kAllowed}, {"Continue"}},
        {Page::automation, {true, kDenied}, kDeclined, {"Skip", "Open System Settings…"}},
        {Page::automation,
         {true, kGranted, KeyWay::captured, false},
         with(kAllowed, kOff),
         {"Continue"}},
        {Page::automation,
         {true, kGranted, KeyWay::available, false},
         with(kAllowed, kOff),
         {"Continue"}},
        {Page::automation,
         {true, kNotAsked, KeyWay::available},
         {.tick = kNotYet},
         {"Skip", "Allow…"}},
        {Page::automation,
         {true, kGranted, KeyWay::available},
         {.tick = kNotYet},
         {"Skip", "Allow…"}},
        {Page::automation, {false, kGranted, KeyWay::bound}, {.tick = kAllowed}, {"Continue"}},
        {Page::automation, {true, kGranted, KeyWay::none}, kNoKey, {"Continue"}},
        {Page::automation, {true, kDenied, KeyWay::none}, kNoKey, {"Continue"}},
        {Page::automation, {true, kGranted, KeyWay::blocked}, kNoKey, {"Continue"}},
        {Page::ready,
         {},
         {.caption = "Change permissions any time: Vexmoor menu > Set Up Permissions…"},
         {"Start Feeding"}},
    };
    for (std::size_t i = 0; i < std::size(kCases); ++i) {
        SCOPED_TRACE(i);
        facts = kCases[i].facts;
        EXPECT_EQ(start(kCases[i].page).status(), kCases[i].status);
        EXPECT_EQ(buttons(), shown(kCases[i].buttons));
    }
}

TEST_F(OnboardingTest, LastPageNamesOnlyWhatWorks) {
    const std::string kKey = "Drop files on the Dock icon, or press ⌘⌫ in Finder.";
    const std::string kMenu =
        "Drop files on the Dock icon, or right-click them and choose Services > Feed to Vexmoor.";
    constexpr auto kGranted = AutomationStatus::granted;
    const std::pair<Facts, std::string> kCases[] = {
        {{true, kGranted}, kKey},
        {{true, kGranted, KeyWay::captured, false, true}, kMenu},
        {{false, kGranted, KeyWay::captured, true, true}, kMenu},
        {{true, AutomationStatus::denied, KeyWay::captured, true, true}, kMenu},
        {{false, kGranted, KeyWay::bound}, kKey},
        {{true, kGranted, KeyWay::none, true, true}, kMenu},
        {{true, kGranted, KeyWay::none}, "Drop files on the cauldron."},
    };
    for (const auto& [fact, blurb] : kCases) {
        facts = fact;
        EXPECT_EQ(start(Page::ready).blurb(), text(blurb));
    }
    facts = {.key = KeyWay::none, .hasMenuEntry = true};
    EXPECT_EQ(start(Page::automation).title(), "Feed files from their menu");
    EXPECT_EQ(onboarding->blurb(),
              "Right-click them in the file manager and choose Feed to Vexmoor.");
    facts.accessible = true;
    EXPECT_EQ(start(Page::accessibility).blurb(),
              "The accessibility service is running. There is nothing to set up.");
}

TEST_F(OnboardingTest, FollowsTheSessionWhileAPageIsOpen) {
    Onboarding& walk = start(Page::accessibility);
    walk.poll();
    EXPECT_EQ(changes, 0) << "nothing changed";
    walk.primaryAction();
    EXPECT_THAT(calls, ElementsAre("accessibility"));
    facts.accessible = true;
    walk.poll();
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(buttons(), ElementsAre("Continue"));
    walk.primaryAction();
    EXPECT_EQ(walk.page(), Page::automation);
}

TEST_F(OnboardingTest, AsksForAutomationOnceAndThenOpensItsSettings) {
    Onboarding& walk = start(Page::automation);
    walk.primaryAction();
    facts.automation = AutomationStatus::denied;
    answer();
    EXPECT_EQ(changes, 1);
    walk.primaryAction();
    EXPECT_THAT(calls, ElementsAre("ask", "automation"));
    facts.automation = AutomationStatus::granted;
    walk.poll();
    walk.primaryAction();
    EXPECT_EQ(walk.page(), Page::folders);
}

TEST_F(OnboardingTest, ProbesTheFoldersOnRequestAndNamesMissingOnes) {
    Onboarding& walk = start(Page::folders);
    EXPECT_EQ(walk.status(),
              (Onboarding::Status{
                  .tick = Tick{false, "Not asked yet",
                               text("Files dropped on the Dock icon never need this.")}}));
    walk.openFolderSettings();
    walk.primaryAction();
    EXPECT_THAT(calls, ElementsAre("probe"));
    EXPECT_THAT(buttons(), ElementsAre("Skip", "Allow…")) << "the probe has not completed";
    probed(kTwo);
    EXPECT_EQ(changes, 1);
    Onboarding::Status status{
        .badges = {{true, "Desktop"}, {false, "Documents"}, {true, "Downloads"}}};
    status.link = text("Turn on the missing folders in System Settings…");
    EXPECT_EQ(walk.status(), status);
    EXPECT_THAT(buttons(), ElementsAre("Continue"));
    walk.openFolderSettings();
    EXPECT_THAT(calls, ElementsAre("probe", "documents"));
    walk.primaryAction();
    EXPECT_EQ(walk.page(), Page::ready);
}

TEST_F(OnboardingTest, ProbesTheFoldersImmediatelyIfDoneBefore) {
    foldersWereAsked = true;
    Onboarding& walk = start(Page::folders);
    EXPECT_THAT(calls, ElementsAre("probe"));
    probed(kAll);
    EXPECT_EQ(walk.status().badges.size(), 3U);
    EXPECT_EQ(walk.status().link, "");
}

TEST_F(OnboardingTest, IgnoresCompletionsAfterDestruction) {
    start(Page::automation).primaryAction();
    onboarding->next();
    onboarding->primaryAction();
    onboarding.reset();
    answer();
    probed(kAll);
    EXPECT_EQ(changes, 1) << "only by advancing the page";
}

} // namespace
} // namespace vexmoor
