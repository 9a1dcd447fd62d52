#pragma once

#include <QCoreApplication>
#include <QString>

namespace vexmoor {

class Ledger;
struct Progress;

/// The display texts of the totals.
struct StatsText {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::StatsText)

  public:
    QString count; ///< with thousands separators
    QString countCaption;
    QString bytes;
    QString bytesCaption;
    QString streak;
    QString streakCaption;

    static StatsText of(const Ledger& ledger, const Progress& progress);

    bool operator==(const StatsText&) const = default;
};

} // namespace vexmoor
