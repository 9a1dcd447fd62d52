#pragma once

#include "base/Date.h"

#include <QCoreApplication>
#include <QString>

namespace vexmoor {

class Ledger;
struct Progress;

/// The totals as they are shown: values with their captions, and two lines.
struct StatsText {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::StatsText)

  public:
    QString count; ///< with its thousands set apart
    QString countCaption;
    QString bytes;
    QString bytesCaption;
    QString streak;
    QString streakCaption;
    QString today;        ///< "Today: 46 items, 1.2 GB"
    QString achievements; ///< "6 of 19 achievements"

    /// The day is the one that holds `now`.
    static StatsText of(const Ledger& ledger, const Progress& progress, Date now);

    bool operator==(const StatsText&) const = default;
};

} // namespace vexmoor
