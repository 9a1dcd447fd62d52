#include "MenuContents.h"

#include "base/Path.h"
#include "base/Text.h"
#include "disposal/Ledger.h"
#include "disposal/Settings.h"
#include "intake/UndoStack.h"
#include "progression/Progression.h"

#include <algorithm>
#include <utility>

namespace vexmoor {
namespace {

using Kind = MenuEntry::Kind;

MenuEntry separator() {
    return {.kind = Kind::separator};
}

MenuEntry section(const QString& title) {
    return {.kind = Kind::section, .title = title};
}

MenuEntry submenu(const QString& title, std::vector<MenuEntry> children) {
    return {.kind = Kind::submenu, .title = title, .children = std::move(children)};
}

/// Returns an entry that toggles the setting's current value.
MenuEntry onOff(const QString& title, Setting<bool>& setting) {
    return {.title = title,
            .run = [&setting] { setting.set(!setting.get()); },
            .checked = setting.get()};
}

Symbol symbolOf(const Sacrifice& sacrifice) {
    if (sacrifice.restored)
        return Symbol::putBack;
    return sacrifice.mode == DisposeMode::dissolve ? Symbol::flame : Symbol::trash;
}

} // namespace

std::vector<MenuEntry> MenuContents::entries() {
    std::vector<MenuEntry> menu{{.kind = Kind::header}, separator()};
    addQuickActions(menu);
    menu.push_back(separator());
    addSettings(menu);
    menu.push_back(separator());
    addCommands(menu);
    return menu;
}

MenuEntry MenuContents::item(const QString& title, Signal signal) {
    return {.title = title, .run = [this, signal] { emit(this->*signal)(); }};
}

void MenuContents::addQuickActions(std::vector<MenuEntry>& menu) {
    menu.push_back(section(tr("Quick Actions")));
    menu.push_back(item(tr("Feed Finder Selection"), &MenuContents::feedSelectionChosen));
    menu.back().isEnabled = m_parts.canFeedSelection();
    menu.push_back(putBack());
    menu.push_back(item(tr("Test the Flames"), &MenuContents::testFlamesChosen));
    menu.push_back(item(tr("Open the Bin"), &MenuContents::binChosen));
    menu.push_back(submenu(tr("Recent Sacrifices"), recentMenu()));
}

MenuEntry MenuContents::putBack() {
    m_parts.undoStack.refresh();
    const bool canUndo = m_parts.undoStack.canUndo();
    MenuEntry entry = item(
        canUndo ? tr("Put Back %1").arg(QString::fromStdString(m_parts.undoStack.undoActionName()))
                : tr("Put Back Last Sacrifice"),
        &MenuContents::putBackChosen);
    entry.isEnabled = canUndo || m_parts.canPutBack();
    return entry;
}

std::vector<MenuEntry> MenuContents::recentMenu() {
    const auto& sacrifices = m_parts.ledger.recent.get();
    std::vector<MenuEntry> menu;
    for (std::size_t i = 0; i < std::min(sacrifices.size(), kMostRecent); ++i)
        menu.push_back(recent(sacrifices[i]));
    if (menu.empty())
        menu.push_back({.title = tr("Nothing has been sacrificed yet"), .isEnabled = false});
    return menu;
}

MenuEntry MenuContents::recent(const Sacrifice& sacrifice) {
    MenuEntry entry{.title = QString::fromStdString(sacrifice.name),
                    .run = [this, sacrifice] { emit restoreChosen(sacrifice); },
                    .isEnabled = sacrifice.canRestore(),
                    .symbol = symbolOf(sacrifice),
                    .subject = sacrifice.id.toString()};
    if (sacrifice.canRestore()) {
        const std::string folder = displayText(Path(*sacrifice.original).parent_path().native());
        entry.toolTip = tr("Put Back to %1").arg(QString::fromStdString(folder));
    }
    return entry;
}

void MenuContents::addSettings(std::vector<MenuEntry>& menu) {
    Settings& settings = m_parts.settings;
    const bool dissolves = settings.mode.get() == DisposeMode::dissolve;
    menu.push_back(section(tr("Settings")));
    menu.push_back({.title = tr("Dissolve forever"),
                    .run =
                        [&settings] {
                            settings.mode.set(settings.mode.get() == DisposeMode::bin
                                                  ? DisposeMode::dissolve
                                                  : DisposeMode::bin);
                        },
                    .checked = dissolves});
    if (dissolves) {
        menu.push_back(onOff(tr("Ask before dissolving"), settings.confirmDissolve));
        menu.back().indentation = 1;
    }
    menu.push_back(onOff(tr("Sizzle sound"), settings.sound));
    menu.push_back(onOff(tr("Flames rise above the Dock"), settings.escapeDock));
    menu.push_back(onOff(tr("⌘⌫ in Finder feeds the cauldron"), settings.captureFinderDelete));
    menu.push_back(submenu(tr("Cauldron"), skinMenu()));
    menu.push_back({.title = tr("Hide Menu Bar Icon"),
                    .run = [&settings] { settings.showMenuBarIcon.set(false); }});
}

std::vector<MenuEntry> MenuContents::skinMenu() {
    Progression& progression = m_parts.progression;
    const std::string_view current = Skin::named(progression.progress().skin).id;
    std::vector<MenuEntry> menu;
    for (const Skin& skin : progression.unlockedSkins())
        menu.push_back({.title = QString::fromStdString(text(skin.name)),
                        .run = [&progression, skin] { progression.select(skin); },
                        .checked = skin.id == current,
                        .isChoice = true});
    return menu;
}

void MenuContents::addCommands(std::vector<MenuEntry>& menu) {
    menu.push_back(item(tr("Open Vexmoor…"), &MenuContents::statsChosen));
    const bool isChecking = m_parts.isCheckingForUpdates();
    menu.push_back(item(isChecking ? tr("Checking for Updates…") : tr("Check for Updates…"),
                        &MenuContents::updatesChosen));
    menu.back().isEnabled = !isChecking;
    menu.push_back(item(tr("Quit Vexmoor"), &MenuContents::quitChosen));
}

} // namespace vexmoor
