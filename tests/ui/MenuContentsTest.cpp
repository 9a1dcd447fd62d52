#include "WindowFixture.h"

#include "ui/MenuContents.h"
#include "ui/MenuStatsText.h"

#include "intake/UndoStack.h"

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using namespace test;
using Kind = MenuEntry::Kind;
using testing::ElementsAre;
using testing::HasSubstr;

/// Formats checked entries as "[x] title" and disabled ones as "(title)".
std::string lineOf(const MenuEntry& entry) {
    std::string line(static_cast<std::size_t>(entry.indentation) * 2, ' ');
    if (entry.checked)
        line += *entry.checked ? "[x] " : "[ ] ";
    line += entry.title.toStdString();
    return entry.isEnabled ? line : "(" + line + ")";
}

std::string linesOf(const std::vector<MenuEntry>& entries) {
    std::string lines;
    for (const MenuEntry& entry : entries)
        lines += lineOf(entry) + "\n";
    return lines;
}

struct MenuContentsTest : WindowFixture {
    [[nodiscard]] MenuEntry entry(const QString& title) {
        for (const MenuEntry& each : contents.entries())
            if (each.title == title)
                return each;
        ADD_FAILURE() << "no " << title.toStdString();
        return {};
    }
    void choose(const QString& title) { entry(title).run(); }

    Sacrifice binned(const std::string& name) const {
        Sacrifice item;
        item.id = Uuid::generate();
        item.name = name;
        item.date = clock.now;
        item.original = StoredPath("/home/ann/Docu ments/" + name);
        item.trashed = StoredPath("/home/ann/.local/share/Trash/files/" + name);
        return item;
    }

    UndoStack undoStack;
    bool canPutBack = false;
    bool canFeed = true;
    bool isChecking = false;
    MenuContents contents{{ledger, settings, progression, undoStack, clock.clock(),
                           [this] { return canPutBack; }, [this] { return canFeed; },
                           [this] { return isChecking; }}};
};

TEST_F(MenuContentsTest, ReflectsTheCurrentState) {
    const auto stateLines = [this] {
        std::vector<MenuEntry> entries = contents.entries();
        std::erase_if(entries, [](const MenuEntry& each) {
            const bool isPlain = each.isEnabled && !each.checked;
            return isPlain || each.kind == Kind::separator || each.kind == Kind::section;
        });
        return linesOf(entries);
    };
    EXPECT_EQ(stateLines(), R"((Put Back Last Sacrifice)
[ ] Dissolve forever
[x] Sizzle sound
[x] Flames rise above the Dock
[x] ⌘⌫ in Finder feeds the cauldron
)");
    canFeed = false;
    canPutBack = true;
    isChecking = true;
    settings.mode.set(DisposeMode::dissolve);
    settings.confirmDissolve.set(false);
    settings.sound.set(false);
    EXPECT_EQ(stateLines(), R"((Feed Finder Selection)
[x] Dissolve forever
  [ ] Ask before dissolving
[ ] Sizzle sound
[x] Flames rise above the Dock
[x] ⌘⌫ in Finder feeds the cauldron
(Checking for Updates…)
)");
}

TEST_F(MenuContentsTest, NamesTheBatchThatIsPutBack) {
    bool isLeft = true;
    undoStack.push(
        "Sacrifice of 3 Items", [] {}, [&] { return isLeft; });
    EXPECT_TRUE(entry("Put Back Sacrifice of 3 Items").isEnabled);
    isLeft = false;
    EXPECT_FALSE(entry("Put Back Last Sacrifice").isEnabled);
}

TEST_F(MenuContentsTest, TogglesTheCurrentSetting) {
    const struct {
        const char* title;
        Setting<bool> Settings::*setting;
    } kSwitches[] = {{"Ask before dissolving", &Settings::confirmDissolve},
                     {"Sizzle sound", &Settings::sound},
                     {"Flames rise above the Dock", &Settings::escapeDock},
                     {"⌘⌫ in Finder feeds the cauldron", &Settings::captureFinderDelete}};
    settings.mode.set(DisposeMode::dissolve);
    for (const auto& [title, setting] : kSwitches) {
        const MenuEntry shown = entry(title);
        (settings.*setting).set(false); // changed elsewhere while the menu is open
        shown.run();
        EXPECT_TRUE((settings.*setting).get()) << title;
        choose(title);
        EXPECT_FALSE((settings.*setting).get()) << title;
    }
    choose("Dissolve forever");
    EXPECT_EQ(settings.mode.get(), DisposeMode::bin);
    choose("Hide Menu Bar Icon");
    EXPECT_FALSE(settings.showMenuBarIcon.get());
    choose("Hide Menu Bar Icon");
    EXPECT_FALSE(settings.showMenuBarIcon.get());
}

TEST_F(MenuContentsTest, ListsTheTenNewestSacrifices) {
    EXPECT_EQ(linesOf(entry("Recent Sacrifices").children), "(Nothing has been sacrificed yet)\n");
    Sacrifice dissolved = binned("dissolved");
    dissolved.mode = DisposeMode::dissolve;
    Sacrifice restored = binned("restored");
    std::vector<Sacrifice> items;
    for (int i = 0; i < 9; ++i)
        items.push_back(binned("old " + std::to_string(i)));
    items.insert(items.end(), {dissolved, restored, binned("new\nline")});
    ledger.record(items);
    ledger.mark({restored.id}, {}, {});

    const auto recent = entry("Recent Sacrifices").children;
    ASSERT_EQ(recent.size(), 10U);
    EXPECT_EQ(linesOf({recent.begin(), recent.begin() + 4}),
              "new\nline\n(restored)\n(dissolved)\nold 8\n");
    const std::optional<Symbol> symbols[] = {recent[0].symbol, recent[1].symbol, recent[2].symbol};
    EXPECT_THAT(symbols, ElementsAre(Symbol::trash, Symbol::putBack, Symbol::flame));
    EXPECT_EQ(recent[0].toolTip, "Put Back to /home/ann/Docu ments");
    EXPECT_EQ(recent[1].toolTip + recent[2].toolTip, "");

    std::vector<std::string> chosen;
    QObject::connect(&contents, &MenuContents::restoreChosen, &contents,
                     [&](const Sacrifice& sacrifice) { chosen.push_back(sacrifice.name); });
    recent[3].run();
    EXPECT_THAT(chosen, ElementsAre("old 8"));
}

TEST_F(MenuContentsTest, ChecksTheChosenSkin) {
    EXPECT_EQ(linesOf(entry("Cauldron").children).substr(0, 9), "[x] Iron\n");
    progression.unlockAll();
    const auto skins = entry("Cauldron").children;
    ASSERT_EQ(skins.size(), 15U);
    skins[2].run();
    EXPECT_EQ(progression.progress().skin, "cobalt");
    EXPECT_THAT(linesOf(entry("Cauldron").children),
                testing::StartsWith("[ ] Iron\n[ ] Copper\n[x] Cobalt\n"));
}

TEST_F(MenuContentsTest, EmitsTheSignalOfEachEntry) {
    std::vector<std::string> chosen;
    const auto note = [&](auto signal, const char* name) {
        QObject::connect(&contents, signal, &contents, [&chosen, name] { chosen.push_back(name); });
    };
    note(&MenuContents::feedSelectionChosen, "feed");
    note(&MenuContents::putBackChosen, "put back");
    note(&MenuContents::testFlamesChosen, "flames");
    note(&MenuContents::binChosen, "bin");
    note(&MenuContents::statsChosen, "stats");
    note(&MenuContents::updatesChosen, "updates");
    note(&MenuContents::quitChosen, "quit");
    for (const char* const title :
         {"Feed Finder Selection", "Put Back Last Sacrifice", "Test the Flames", "Open the Bin",
          "Open Vexmoor…", "Check for Updates…", "Quit Vexmoor"})
        choose(title);
    EXPECT_THAT(chosen,
                ElementsAre("feed", "put back", "flames", "bin", "stats", "updates", "quit"));
}

TEST_F(MenuContentsTest, HeaderShowsTheTotals) {
    const auto textNow = [this] {
        const auto text = MenuStatsText::of(ledger, progression.progress(), clock.now);
        return text.line().toStdString() + "\n" + text.caption.toStdString();
    };
    EXPECT_EQ(textNow(), "0 sacrifices · Zero KB consumed · 0 day streak\n"
                         "Today: 0 items, Zero KB · 0 of 19 achievements");
    feed({1200});
    EXPECT_THAT(textNow(), HasSubstr("1 sacrifice · 1 KB consumed · 1 day streak\n"
                                     "Today: 1 item, 1 KB · 1 of 19 achievements"));
    clock.now = utc("2026-11-23 12:00:00");
    feed(std::vector<std::int64_t>(1283, 30'000'000));
    EXPECT_THAT(textNow(), HasSubstr("1,284 sacrifices · 38.49 GB consumed · 2 day streak\n"
                                     "Today: 1,283 items, 38.49 GB · "));
}

} // namespace
} // namespace vexmoor
