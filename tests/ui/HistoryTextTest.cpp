#include "ui/HistoryText.h"

#include "support/FakeClock.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;

Sacrifice binned() {
    Sacrifice item;
    item.id = Uuid::generate();
    item.name = "notes.txt";
    item.bytes = 88'000;
    item.original = StoredPath("/home/me/Documents/notes.txt");
    item.trashed = StoredPath("/home/me/.local/share/Trash/files/notes.txt");
    item.date = utc("2026-11-22 13:55:00");
    return item;
}

TEST(HistoryTextTest, ShowsTheItemsState) {
    const Sacrifice inBin = binned();
    Sacrifice restored = inBin;
    restored.restored = restored.date;
    Sacrifice lost = inBin;
    lost.lost = true;
    Sacrifice deleted = inBin;
    deleted.deleted = deleted.date;
    Sacrifice dissolved;
    dissolved.mode = DisposeMode::dissolve;
    struct Case {
        const Sacrifice& item;
        const char* fate;
        Symbol symbol;
    };
    for (const auto& [item, fate, symbol] :
         {Case{inBin, "In the Bin", Symbol::trash}, Case{restored, "Put back", Symbol::putBack},
          Case{lost, "No longer in the Bin", Symbol::gone},
          Case{deleted, "Deleted immediately", Symbol::flame},
          Case{dissolved, "Deleted immediately", Symbol::flame}}) {
        EXPECT_EQ(HistoryText::fate(item), fate);
        EXPECT_EQ(HistoryText::symbol(item), symbol) << fate;
    }
    EXPECT_EQ(HistoryText::status(inBin, utc("2026-11-22 14:00:00"), QLocale("de_DE")),
              "In the Bin · 88 KB · 13:55");
}

TEST(HistoryTextTest, ShowsOlderTimesWithLessPrecision) {
    const Date now = utc("2026-11-22 14:00:00"); // a Sunday
    struct Case {
        const char* date;
        const char* locale;
        const char* text;
    };
    for (const auto& [date, locale, text] : {
             Case{"2026-11-22 00:00:00", "de_DE", "00:00"},
             Case{"2026-11-22 13:55:59", "en_GB", "13:55"},
             Case{"2026-11-21 23:59:59", "en_GB", "yesterday"},
             Case{"2026-11-20 12:00:00", "en_GB", "Friday"},
             Case{"2026-11-16 12:00:00", "de_DE", "Montag"},
             Case{"2026-11-15 12:00:00", "de_DE", "15.11.26"},
             Case{"2026-11-23 12:00:00", "en_GB", "23/11/2026"}, // the clock was set back
         })
        EXPECT_EQ(HistoryText::time(utc(date), now, QLocale(locale)), text) << date;
}

TEST(HistoryTextTest, EscapesHostileNames) {
    Sacrifice item = binned();
    item.name = "a\nb\xE2\x80\xAE.txt\x1B[2J";
    const QString shown = HistoryText::name(item);
    for (const QChar letter : shown)
        EXPECT_TRUE(letter.isPrint()) << shown.toStdString();
    EXPECT_EQ(HistoryText::toolTip("<b>bold</b>"), "<qt>&lt;b&gt;bold&lt;/b&gt;</qt>");
    EXPECT_EQ(HistoryText::toolTip("a < b"), "a < b");
}

TEST(HistoryTextTest, NamesTheOriginalFolder) {
    struct Case {
        std::optional<StoredPath> original;
        const char* help;
    };
    for (const auto& [original, help] :
         {Case{StoredPath("/home/me/Documents/notes.txt"), "Restore to Documents"},
          Case{StoredPath("/notes.txt"), "Restore to /"},
          Case{StoredPath("/a\nb/notes.txt"), "Restore to a\\nb"},
          Case{std::nullopt, "Restore to its original folder"}}) {
        Sacrifice item = binned();
        item.original = original;
        EXPECT_EQ(HistoryText::restoreHelp(item), help);
    }
    EXPECT_EQ(HistoryText::restoreTitle(1), "Restore File");
    EXPECT_EQ(HistoryText::restoreTitle(2), "Restore 2 Files");
    EXPECT_EQ(HistoryText::deleteTitle(1), "Delete File…");
    EXPECT_EQ(HistoryText::deleteTitle(40), "Delete 40 Files…");
}

} // namespace
} // namespace vexmoor
