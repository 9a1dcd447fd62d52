#include "Stage.h"

#include "ui/AboutPanel.h"
#include "ui/AccentButton.h"
#include "ui/AchievementsTab.h"
#include "ui/MenuContents.h"
#include "ui/MenuStats.h"
#include "ui/OnboardingView.h"
#include "ui/PopupMenu.h"
#include "ui/SettingsTab.h"
#include "ui/SkinsTab.h"
#include "ui/StatsWindow.h"
#include "ui/UpdatePanel.h"

#include "art/CauldronArt.h"
#include "intake/UndoStack.h"

#include <algorithm>

namespace vexmoor::screens {
namespace {

using Made = std::unique_ptr<QWidget>;

constexpr QSize kTab(360, 450);
constexpr QSize kLongTab(360, 1500);
constexpr QSize kWideTab(1200, 700);

/// With another skin than iron.
Stage& dressed(Stage& stage, const Skin& skin) {
    stage.stores().progression.select(skin);
    CauldronArt::setCurrent(skin);
    return stage;
}

Made statsWindow(Stage& stage) {
    auto& stores = stage.stores();
    return std::make_unique<StatsWindow>(stores.ledger, stores.settings, stores.progression,
                                         stores.clock.clock());
}

Made achievements(Stage& stage) {
    return std::make_unique<AchievementsTab>(stage.stores().progression);
}

Made skins(Stage& stage) {
    return std::make_unique<SkinsTab>(stage.stores().progression);
}

std::unique_ptr<SettingsTab> settings(Stage& stage) {
    auto tab = std::make_unique<SettingsTab>(stage.stores().settings);
    tab->setSkin(Skin::named(stage.stores().progression.progress().skin));
    return tab;
}

Made settingsWithout(Stage& stage, const Permissions& permissions) {
    auto tab = settings(stage);
    tab->setPermissions(permissions);
    return tab;
}

Made settingsWithAllNotices(Stage& stage) {
    stage.stores().settings.mode.set(DisposeMode::dissolve);
    Permissions permissions;
    permissions.accessible = false;
    permissions.automation = AutomationStatus::notAsked;
    return settingsWithout(stage, permissions);
}

Made settingsWithKeyHints(Stage& stage) {
    using Kind = Permissions::KeyHint::Kind;
    Permissions permissions;
    permissions.focusReports = Permissions::FocusReports::missing;
    permissions.keyHints = {
        {"Nautilus", Kind::needsRestart}, {"Thunar", Kind::taken}, {"Caja", Kind::menuOnly}};
    return settingsWithout(stage, permissions);
}

Made settingsWithoutKey(Stage& stage) {
    Permissions permissions;
    permissions.keyIsPossible = false;
    return settingsWithout(stage, permissions);
}

Made trayPopup(Stage& stage) {
    auto& stores = stage.stores();
    auto& contents = stage.make<MenuContents>(MenuContents::Parts{
        stores.ledger, stores.settings, stores.progression, stage.make<UndoStack>(),
        stores.clock.clock(), [] { return true; }, [] { return true; }, [] { return false; }});
    return std::make_unique<PopupMenu>(
        contents.entries(),
        [&stores](QWidget* parent) {
            return new MenuStats(stores.ledger, stores.progression, stores.clock.clock(), parent);
        },
        Skin::named(stores.progression.progress().skin), true);
}

/// The walkthrough at a page, where all that comes before is allowed.
Made walkthrough(Onboarding::Page page) {
    using Page = Onboarding::Page;
    Onboarding::Facts facts;
    facts.accessible = page > Page::accessibility;
    if (page > Page::automation)
        facts.automation = AutomationStatus::granted;
    auto view = std::make_unique<OnboardingView>(
        Onboarding::Ports{.facts = [facts] { return facts; },
                          .askForAutomation = [](auto) {},
                          .foldersWereAsked = [] { return false; },
                          .probeFolders =
                              [](auto completion) {
                                  completion({{FolderAccess::Folder::desktop, true},
                                              {FolderAccess::Folder::documents, true},
                                              {FolderAccess::Folder::downloads, true}});
                              },
                          .openAccessibilitySettings = [] {},
                          .openAutomationSettings = [] {},
                          .openFolderSettings = [](FolderAccess::Folder) {},
                          .finish = [] {}},
        Skin::iron());
    view->show();
    auto* const primary = view->findChildren<AccentButton*>().last();
    for (int press = 0; press < 2 * Onboarding::kPages && view->page() < page; ++press)
        primary->click();
    return view;
}

Made about(Stage&) {
    return Made(&showAbout(nullptr));
}

Made updatePanel(Stage&) {
    return std::make_unique<UpdatePanel>(Skin::iron());
}

} // namespace

const std::vector<Scene>& scenes() {
    using Page = Onboarding::Page;
    static const std::vector<Scene> kScenes{
        {"stats", {360, 760}, statsWindow},
        {"achievements", kTab, achievements},
        {"achievements-all", kLongTab, achievements},
        {"achievements-wide", kWideTab, achievements},
        {"skins", kTab, [](Stage& stage) { return skins(dressed(stage, Skin::cobalt())); }},
        {"skins-all", {360, 960}, skins},
        {"skins-wide", kWideTab, skins},
        {"settings", kTab, settings},
        {"settings-witchfire",
         {360, 640},
         [](Stage& stage) { return settingsWithAllNotices(dressed(stage, Skin::witchfire())); }},
        {"settings-key-hints", {360, 760}, settingsWithKeyHints},
        {"settings-without-key", kTab, settingsWithoutKey},
        {"settings-wide", kWideTab, settings},
        {"tray-popup", {}, trayPopup},
        {"walkthrough-1", {}, [](Stage&) { return walkthrough(Page::welcome); }},
        {"walkthrough-2", {}, [](Stage&) { return walkthrough(Page::accessibility); }},
        {"walkthrough-3", {}, [](Stage&) { return walkthrough(Page::automation); }},
        {"walkthrough-4", {}, [](Stage&) { return walkthrough(Page::folders); }},
        {"walkthrough-5", {}, [](Stage&) { return walkthrough(Page::ready); }},
        {"about", {}, about},
        {"updates", {}, updatePanel},
    };
    return kScenes;
}

} // namespace vexmoor::screens
