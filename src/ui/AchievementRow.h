#pragma once

#include <QCoreApplication>
#include <QString>

#include <string_view>
#include <vector>

namespace vexmoor {

struct Achievement;
struct Progress;

/// One achievement as it is shown. A plain value.
struct AchievementRow {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::AchievementRow)

  public:
    std::string_view icon; ///< for AchievementArt
    QString title;
    QString flavour;
    QString reward;   ///< "Reward: Lava cauldron"; empty without one
    QString amount;   ///< "428 / 1,000"
    double share = 0; ///< of the target, 0 to 1
    bool isUnlocked = false;

    static AchievementRow of(const Achievement& achievement, const Progress& progress);

    /// All, in the catalogue's order.
    static std::vector<AchievementRow> all(const Progress& progress);

    /// "6 of 19 unlocked"
    static QString heading(const Progress& progress);

    /// For screen readers: "Bottomless, locked, 428 / 1,000".
    [[nodiscard]] QString spoken() const;

    bool operator==(const AchievementRow&) const = default;
};

} // namespace vexmoor
