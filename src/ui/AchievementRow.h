#pragma once

#include <QCoreApplication>
#include <QString>

#include <string_view>
#include <vector>

namespace vexmoor {

struct Achievement;
struct Progress;

/// The display texts of an achievement.
struct AchievementRow {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::AchievementRow)

  public:
    std::string_view icon; ///< id for AchievementArt
    QString title;
    QString flavour;
    QString reward;   ///< "Reward: Lava cauldron", or empty
    QString amount;   ///< "428 / 1,000"
    double share = 0; ///< progress, 0 to 1
    bool isUnlocked = false;

    static AchievementRow of(const Achievement& achievement, const Progress& progress);

    /// Returns all achievements in the catalogue's order.
    static std::vector<AchievementRow> all(const Progress& progress);

    /// Returns, for example, "6 of 19 unlocked".
    static QString heading(const Progress& progress);

    /// Returns the text for screen readers, for example "Bottomless, locked, 428 / 1,000".
    [[nodiscard]] QString spoken() const;

    bool operator==(const AchievementRow&) const = default;
};

} // namespace vexmoor
