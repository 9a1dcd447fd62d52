#pragma once

#include "base/Date.h"

#include <QString>

#include <array>

namespace vexmoor {

class Ledger;
struct Progress;

/// The texts of the menu's header.
struct MenuStatsText {
    struct Statistic {
        QString value;
        QString label;
        QString whole; ///< value and label as one text, for example "1,284 sacrifices"

        bool operator==(const Statistic&) const = default;
    };

    std::array<Statistic, 3> statistics;
    QString caption; ///< "Today: 46 items, 1.2 GB · 6 of 19 achievements"

    /// "Today" is the day that contains `now`.
    static MenuStatsText of(const Ledger& ledger, const Progress& progress, Date now);

    /// Returns the statistics in one line.
    [[nodiscard]] QString line() const;

    bool operator==(const MenuStatsText&) const = default;
};

} // namespace vexmoor
