#include "Stage.h"

#include "ui/AboutPanel.h"
#include "ui/AccentButton.h"
#include "ui/AchievementsTab.h"
#include "ui/HistoryList.h"
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

#include <QPainter>

#include <algorithm>
#include <list>

namespace vexmoor::screens {
namespace {

using Made = std::unique_ptr<QWidget>;

constexpr QSize kWindow(360, 760);
constexpr QSize kTab(360, 450);
constexpr QSize kLongTab(360, 1500);
constexpr QSize kWideTab(1200, 700);

/// Uses a skin other than iron.
Stage& dressed(Stage& stage, const Skin& skin) {
    stage.stores().progression.select(skin);
    CauldronArt::setCurrent(skin);
    return stage;
}

/// Loads previews for images; other items show the sheet of their type.
void landscape(const Sacrifice& item, const BinnedPictures::Completion& completion) {
    if (!item.name.ends_with(".png") && !item.name.ends_with(".jpg"))
        return;
    QImage image(128, 80, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient sky(0, 0, 0, 80);
    sky.setColorAt(0, QColor(0x35, 0x6a, 0xc8));
    sky.setColorAt(1, QColor(0xf3, 0xb4, 0x76));
    painter.fillRect(image.rect(), sky);
    completion({image, true});
}

Made statsWindow(Stage& stage) {
    auto& stores = stage.stores();
    return std::make_unique<StatsWindow>(StatsView::Parts{.ledger = stores.ledger,
                                                          .settings = stores.settings,
                                                          .progression = stores.progression,
                                                          .clock = stores.clock.clock(),
                                                          .loadPicture = &landscape});
}

/// Selects items after the window is shown, because showing clears the selection.
template <typename Act>
Made shownFirst(Stage& stage, Act act) {
    Made window = statsWindow(stage);
    window->show();
    act(*window);
    return window;
}

/// The whole window with a tab other than the history.
template <StatsView::Tab tab>
Made windowWith(Stage& stage) {
    return shownFirst(stage, [](QWidget& window) { window.findChild<StatsView*>()->setTab(tab); });
}

Made historyWithPicked(Stage& stage) {
    return shownFirst(stage, [](QWidget& window) {
        auto& list = *window.findChild<HistoryList*>();
        for (const int row : {0, 2})
            list.selectionModel()->select(list.model()->index(row, 0), QItemSelectionModel::Select);
    });
}

Made historyFromTheRight(Stage& stage) {
    Made window = historyWithPicked(stage);
    window->setLayoutDirection(Qt::RightToLeft);
    return window;
}

Made historyWithFilter(Stage& stage) {
    return shownFirst(stage,
                      [](QWidget& window) { window.findChild<HistoryTab*>()->openFilter(); });
}

Made dissolvingHistory(Stage& stage) {
    stage.stores().settings.mode.set(DisposeMode::dissolve);
    return statsWindow(stage);
}

/// Uses an empty ledger, as at the first start.
Made emptyHistory(Stage&) {
    static std::list<test::WindowStores> kept; // lives as long as the windows
    auto* const stores = &kept.emplace_back();
    auto window = std::make_unique<StatsWindow>(StatsView::Parts{.ledger = stores->ledger,
                                                                 .settings = stores->settings,
                                                                 .progression = stores->progression,
                                                                 .clock = stores->clock.clock()});
    return window;
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

/// The walkthrough at a page, with all previous permissions granted.
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
        {"history", kWindow, statsWindow},
        {"history-picked", kWindow, historyWithPicked},
        {"history-right-to-left", kWindow, historyFromTheRight},
        {"history-small", {360, 520}, historyWithPicked},
        {"history-wide", {1200, 800}, historyWithPicked},
        {"history-filter", kWindow, historyWithFilter},
        {"history-empty", kWindow, emptyHistory},
        {"history-witchfire", kWindow,
         [](Stage& stage) { return dissolvingHistory(dressed(stage, Skin::witchfire())); }},
        {"window-achievements", kWindow, windowWith<StatsView::Tab::achievements>},
        {"window-skins", kWindow,
         [](Stage& stage) {
             return windowWith<StatsView::Tab::skins>(dressed(stage, Skin::cobalt()));
         }},
        {"window-settings", kWindow,
         [](Stage& stage) {
             return windowWith<StatsView::Tab::settings>(dressed(stage, Skin::witchfire()));
         }},
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
