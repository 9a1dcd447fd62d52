#pragma once

#include "base/Date.h"

#include <QString>

#include <array>

namespace vexmoor {

class Ledger;
struct Progress;

/// What the menu's header says.
struct MenuStatsText {
    struct Statistic {
        QString value;
        QString label;
        QString whole; ///< both as one text: "1,284 sacrifices"

        bool operator==(const Statistic&) const = default;
    };

    std::array<Statistic, 3> statistics;
    QString caption; ///< "Today: 46 items, 1.2 GB · 6 of 19 achievements"

    /// Today is the day that holds `now`.
    static MenuStatsText of(const Ledger& ledger, const Progress& progress, Date now);

    /// The statistics as one line of text.
    [[nodiscard]] QString line() const;

    bool operator==(const MenuStatsText&) const = default;
};

} // namespace vexmoor
