#include "WindowFixture.h"

#include "ui/AccentButton.h"
#include "ui/Motion.h"
#include "ui/OnboardingView.h"

#include <filesystem>

// Renders pictures of the walkthrough for visual inspection into VEXMOOR_SCREENSHOT_DIRECTORY.

namespace vexmoor {
namespace {

using namespace test;
using FolderAccess::Folder;

class OnboardingPicturesTest : public WindowFixture,
                               public testing::WithParamInterface<const char*> {
  protected:
    OnboardingPicturesTest() : WindowFixture(GetParam()) { setReducedMotion(true); }
    ~OnboardingPicturesTest() override { setReducedMotion(false); }

    static void keep(QWidget& window, const std::string& name) {
        const std::filesystem::path folder = VEXMOOR_SCREENSHOT_DIRECTORY;
        std::filesystem::create_directories(folder);
        const auto file = folder / (name + "-" + GetParam() + "x.png");
        EXPECT_TRUE(window.grab().toImage().save(QString::fromStdString(file))) << file;
    }
};

TEST_P(OnboardingPicturesTest, OfEveryPageAndState) {
    QIcon::setFallbackThemeName("Adwaita");
    Onboarding::Facts facts;
    const auto ports = [&facts] {
        return Onboarding::Ports{.facts = [&facts] { return facts; },
                                 .askForAutomation = [](auto) {},
                                 .foldersWereAsked = [] { return false; },
                                 .probeFolders =
                                     [](auto completion) {
                                         completion({{Folder::desktop, true},
                                                     {Folder::documents, false},
                                                     {Folder::downloads, true}});
                                     },
                                 .openAccessibilitySettings = [] {},
                                 .openAutomationSettings = [] {},
                                 .openFolderSettings = [](Folder) {},
                                 .finish = [] {}};
    };
    for (const bool dark : {false, true}) {
        QApplication::setPalette(desktopPalette(dark));
        for (const Skin* const skin : {&Skin::iron(), &Skin::witchfire(), &Skin::gold()}) {
            facts = {};
            OnboardingView view(ports(), *skin, makeTimer());
            view.show();
            const auto buttons = view.findChildren<AccentButton*>();
            auto* const primary = buttons.last();
            const auto keepPage = [&](const char* state) {
                QCoreApplication::processEvents();
                keep(view, "walk-" + std::to_string(static_cast<int>(view.page())) + state + "-" +
                               std::string(skin->id) + (dark ? "-dark" : "-light"));
            };
            const auto poll = [&] {
                view.hide();
                view.show();
            };
            keepPage("");
            primary->click();
            keepPage("");
            facts.accessible = true;
            poll();
            keepPage("-allowed");
            primary->click();
            keepPage("");
            facts.automation = AutomationStatus::denied;
            poll();
            keepPage("-declined");
            facts.key = Onboarding::KeyWay::none;
            poll();
            keepPage("-none");
            facts.key = Onboarding::KeyWay::captured;
            facts.automation = AutomationStatus::granted;
            poll();
            primary->click();
            keepPage("");
            primary->click();
            keepPage("-probed");
            primary->click();
            keepPage("");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, OnboardingPicturesTest, testing::Values("1", "1.25", "2"));

} // namespace
} // namespace vexmoor
