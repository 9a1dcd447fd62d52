#include "GermanFixture.h"

#include "ui/AccentButton.h"
#include "ui/Motion.h"
#include "ui/OnboardingPicture.h"
#include "ui/OnboardingStatus.h"
#include "ui/OnboardingView.h"
#include "ui/PageDots.h"

#include "support/MainLoop.h"

#include <QAccessible>

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using namespace test;
using FolderAccess::Folder;
using Page = OnboardingView::Page;

struct OnboardingViewTest : WindowFixture {
    OnboardingViewTest() { setReducedMotion(true); }
    ~OnboardingViewTest() override { setReducedMotion(false); }

    Onboarding::Facts facts;
    std::vector<std::string> calls;
    OnboardingView view{
        {.facts = [this] { return facts; },
         .askForAutomation = [this](auto) { calls.emplace_back("ask"); },
         .foldersWereAsked = [] { return false; },
         .probeFolders =
             [](auto completion) {
                 completion({{Folder::desktop, true},
                             {Folder::documents, false},
                             {Folder::downloads, true}});
             },
         .openAccessibilitySettings = [this] { calls.emplace_back("accessibility"); },
         .openAutomationSettings = [] {},
         .openFolderSettings =
             [this](Folder folder) { calls.emplace_back(FolderAccess::toRawValue(folder)); },
         .finish = [this] { calls.emplace_back("finish"); }},
        Skin::iron(),
        makeTimer()};

    /// Returns the accessible texts of the visible widgets.
    [[nodiscard]] QStringList readAloud() const {
        QStringList names;
        for (QWidget* const widget : view.findChildren<QWidget*>()) {
            auto* const face = QAccessible::queryAccessibleInterface(widget);
            if (const QString name = face ? face->text(QAccessible::Name) : QString();
                !name.isEmpty() && widget->isVisible())
                names << name;
        }
        return names;
    }
    [[nodiscard]] QString focusedText() const {
        const auto* const label = qobject_cast<QLabel*>(QApplication::focusWidget());
        return label ? label->text() : QString();
    }
    void activate() {
        view.show();
        view.activateWindow();
        ASSERT_TRUE(eventuallyInLoop([this] { return view.isActiveWindow(); }));
    }
    /// Fires the timer that polls the session.
    void poll() const {
        for (ManualTimer* const timer : timers)
            if (timer->fire && timer->seconds == 1)
                timer->fire();
    }
    void pressInFocus(Qt::Key key) const {
        auto* const focus = QApplication::focusWidget();
        press(focus ? *focus : const_cast<OnboardingView&>(view), key);
    }
};

TEST_F(OnboardingViewTest, CanBeCompletedWithReturn) {
    activate();
    EXPECT_EQ(view.windowTitle(), "Welcome to Vexmoor");
    EXPECT_EQ(view.size(), QSize(420, 440));
    EXPECT_EQ(focusedText(), "Welcome to Vexmoor");
    facts = {.accessible = true, .automation = AutomationStatus::granted};
    for (const char* const title :
         {"Let flames rise above the Dock", "Press Ctrl+Backspace to feed it",
          "Let Vexmoor see your files"}) {
        pressInFocus(Qt::Key_Return);
        EXPECT_EQ(focusedText(), title) << "the page is announced";
        poll();
    }
    pressInFocus(Qt::Key_Return); // probes the folders
    EXPECT_TRUE(readAloud().contains("Documents: not allowed"));
    pressInFocus(Qt::Key_Return);
    EXPECT_EQ(focusedText(), "Ready");
    EXPECT_THAT(calls, testing::IsEmpty());
    pressInFocus(Qt::Key_Return);
    EXPECT_THAT(calls, testing::ElementsAre("finish"));
}

TEST_F(OnboardingViewTest, ReachesSkipAndLinkByKeyboard) {
    activate();
    pressInFocus(Qt::Key_Return);
    ASSERT_EQ(view.page(), Page::accessibility);
    pressInFocus(Qt::Key_Return);
    EXPECT_THAT(calls, testing::ElementsAre("accessibility"));
    const auto pressButton = [this](const QString& text, Qt::Key key) {
        for (int stop = 0; stop < 6; ++stop) {
            const auto* const button = qobject_cast<QPushButton*>(QApplication::focusWidget());
            if (button != nullptr && button->text() == text) {
                pressInFocus(key);
                return true;
            }
            pressInFocus(Qt::Key_Tab);
        }
        return false;
    };
    EXPECT_TRUE(pressButton("Skip", Qt::Key_Space));
    EXPECT_EQ(view.page(), Page::automation);
    EXPECT_TRUE(pressButton("Skip", Qt::Key_Space));
    EXPECT_TRUE(pressButton("Allow…", Qt::Key_Space));
    EXPECT_TRUE(pressButton("Look at the missing folders in the file manager…", Qt::Key_Space));
    EXPECT_THAT(calls, testing::ElementsAre("accessibility", "documents"));
}

TEST_F(OnboardingViewTest, IsReadByScreenReaders) {
    activate();
    pressInFocus(Qt::Key_Return);
    EXPECT_THAT(readAloud(),
                testing::UnorderedElementsAre(
                    "Accessibility", "Let flames rise above the Dock",
                    "The desktop's settings will open. Turn on accessibility, then "
                    "come back.",
                    "Not allowed yet", "Also needed for Ctrl+Backspace in the file manager.",
                    "Page 2 of 5", "Skip", "Open Settings…"));
    auto* const face = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
    EXPECT_EQ(face->text(QAccessible::Description),
              "The desktop's settings will open. Turn on accessibility, then come back. Not "
              "allowed yet. Also needed for Ctrl+Backspace in the file manager.");
}

TEST_F(OnboardingViewTest, PollsEachSecondOnlyWhileVisible) {
    view.show();
    view.findChildren<AccentButton*>().last()->click();
    ASSERT_EQ(view.page(), Page::accessibility);
    facts.accessible = true;
    EXPECT_FALSE(readAloud().contains("Allowed"));
    poll();
    EXPECT_TRUE(readAloud().contains("Allowed"));
    EXPECT_FALSE(readAloud().contains("Skip"));
    view.hide();
    for (const ManualTimer* const timer : timers)
        EXPECT_FALSE(timer->fire);
    facts.accessible = false;
    view.show();
    EXPECT_TRUE(readAloud().contains("Not allowed yet")) << "it polls when shown again";
}

TEST_F(OnboardingViewTest, KeepsItsLayoutBetweenPagesAndFollowsSkinAndDesktop) {
    view.show();
    const auto places = [this] {
        std::vector<QRect> result;
        for (const QWidget* const widget :
             {static_cast<QWidget*>(view.findChild<OnboardingPicture*>()),
              static_cast<QWidget*>(view.findChild<OnboardingStatus*>()),
              static_cast<QWidget*>(view.findChild<PageDots*>())})
            result.push_back(widget->geometry());
        result.push_back(view.rect());
        return result;
    };
    const auto before = places();
    auto* const primary = view.findChildren<AccentButton*>().last();
    for (int page = 1; page < Onboarding::kPages; ++page) {
        facts = {.accessible = page != 1, .automation = AutomationStatus::granted};
        primary->click();
        poll();
        if (view.page() == Page::folders)
            primary->click();
        QCoreApplication::processEvents();
        EXPECT_EQ(places(), before) << page;
        const QImage iron = view.grab().toImage();
        view.setSkin(Skin::cobalt());
        EXPECT_NE(view.grab().toImage(), iron);
        view.setSkin(Skin::iron());
        EXPECT_EQ(view.grab().toImage(), iron);
        facts.accessible = true;
    }
    QApplication::setPalette(desktopPalette(true));
    QCoreApplication::processEvents();
    EXPECT_EQ(view.grab().toImage().pixelColor(1, 1), desktopPalette(true).color(QPalette::Base));
}

using GermanOnboardingTest = GermanFixture;

TEST_F(GermanOnboardingTest, KeepsItsSizeWhereTitlesTakeTwoLines) {
    OnboardingView view{{.facts = [] { return Onboarding::Facts{.accessible = true}; },
                         .askForAutomation = {},
                         .foldersWereAsked = [] { return false; },
                         .probeFolders = {},
                         .openAccessibilitySettings = {},
                         .openAutomationSettings = {},
                         .openFolderSettings = {},
                         .finish = {}},
                        Skin::iron(),
                        makeTimer()};
    view.show();
    const QSize size = view.size();
    const auto buttons = view.findChildren<AccentButton*>();
    for (int page = 1; page < Onboarding::kPages; ++page) {
        buttons[buttons.size() - (page == 1 ? 1 : 2)]->click(); // continue, then skip
        EXPECT_EQ(view.page(), Page{page});
        EXPECT_EQ(view.size(), size) << page;
    }
}

} // namespace
} // namespace vexmoor
