#pragma once

#include "support/WindowStores.h"

#include <span>

namespace vexmoor::test {

/// A recent item of the sample data.
struct SampleItem {
    enum class Fate { inBin, putBack, dissolved, lost };

    const char* moment;
    const char* name;
    const char* folder; ///< original folder, relative to the home folder
    std::int64_t bytes;
    Fate fate = Fate::inBin;
};

/// Sample data of a user after a few weeks, for window pictures: 1,284 items, 38.6 GB, a streak of
/// 12 days, 46 items today; nine achievements and six skins are unlocked.
struct SampleStores : WindowStores {
    SampleStores() : WindowStores({{"progression", UserDefaults::Data{encode(sampleProgress())}}}) {
        static constexpr const char* kDays[] = {"2026-11-16", "2026-11-18", "2026-11-19",
                                                "2026-11-20", "2026-11-21"};
        static constexpr int kCounts[] = {15, 31, 8, 44, 22};
        day("2026-11-10", 1118, 32'100'000);
        for (std::size_t index = 0; index < std::size(kDays); ++index)
            day(kDays[index], kCounts[index], 12'600'000);
        day("2026-11-22", 36, 16'000'000);
        for (const SampleItem& item : kRecent)
            feed(item);
        clock.now = utc("2026-11-22 14:02:00");
    }

  private:
    /// Oldest first.
    static constexpr SampleItem kRecent[] = {
        {"2026-11-22 08:12:00", "budget 2024 (copy).ods", "Documents", 61'000},
        {"2026-11-22 08:40:00", "IMG_20250914_183312.jpg", "Pictures", 4'200'000},
        {"2026-11-22 08:41:00", "IMG_20250914_183318.jpg", "Pictures", 4'100'000},
        {"2026-11-22 09:15:00", "linux-headers.tar.xz", "Downloads", 128'000'000,
         SampleItem::Fate::lost},
        {"2026-11-22 09:40:00", "old-thesis.pdf", "Documents", 3'400'000, SampleItem::Fate::lost},
        {"2026-11-22 10:20:00", "passwords.txt", "Documents", 4'000, SampleItem::Fate::dissolved},
        {"2026-11-22 11:05:00", "holiday.mov", "Videos", 71'000'000, SampleItem::Fate::putBack},
        {"2026-11-22 13:40:00", "node_modules", "Projects", 412'000'000},
        {"2026-11-22 13:55:00", "quarterly-figures-final-v7-really-final.xlsx", "Documents",
         88'000},
        {"2026-11-22 14:02:00", "Screenshot 2026-11-22 at 14.01.55.png", "Desktop", 2'100'000},
    };

    static Progress sampleProgress() {
        Progress progress;
        progress.items = 1284;
        progress.bytes = 38'600'000'000;
        progress.biggest = 4'700'000'000;
        progress.folders = 42;
        progress.dissolved = 3;
        progress.streak = 12;
        progress.bestStreak = 12;
        progress.lastDay = utc("2026-11-22 00:00:00");
        for (int index = 0; index < 18; ++index)
            progress.extensions.insert("kind" + std::to_string(index));
        progress.unlocked = {"first",  "items10",   "items100",  "items1k", "gb1",
                             "big1gb", "folders10", "dissolve1", "streak7"};
        return progress;
    }

    void day(const std::string& date, int count, std::int64_t bytes) {
        clock.now = utc(date + " 07:00:00");
        std::vector<Sacrifice> items(static_cast<std::size_t>(count));
        for (Sacrifice& item : items)
            item = sacrifice({"", "notes.txt", "Documents", bytes});
        ledger.record(items);
    }

    void feed(const SampleItem& item) {
        clock.now = utc(item.moment);
        const Sacrifice made = sacrifice(item);
        ledger.record({made});
        if (item.fate == SampleItem::Fate::putBack)
            ledger.mark({made.id}, {}, {});
        if (item.fate == SampleItem::Fate::lost)
            ledger.mark({}, {made.id}, {});
    }

    [[nodiscard]] Sacrifice sacrifice(const SampleItem& item) const {
        Sacrifice made;
        made.id = Uuid::generate();
        made.name = item.name;
        made.bytes = item.bytes;
        made.date = clock.now;
        if (item.fate == SampleItem::Fate::dissolved) {
            made.mode = DisposeMode::dissolve;
            return made;
        }
        const std::string home = "/home/sample/";
        made.original = StoredPath(home + item.folder + "/" + item.name);
        made.trashed = StoredPath(home + ".local/share/Trash/files/" + item.name);
        return made;
    }
};

} // namespace vexmoor::test
