#include "AchievementRow.h"

#include "CatalogueText.h"

#include "base/ByteCount.h"
#include "progression/Achievement.h"
#include "progression/Progress.h"

#include <algorithm>

namespace vexmoor {
namespace {

QString measured(std::int64_t value, Achievement::Unit unit) {
    return QString::fromStdString(unit == Achievement::Unit::bytes ? byteCountText(value)
                                                                   : countText(value));
}

QString rewardText(const Achievement& achievement, bool isUnlocked) {
    if (achievement.reward == nullptr)
        return {};
    if (achievement.secret && !isUnlocked)
        return AchievementRow::tr("Reward: ???");
    return AchievementRow::tr("Reward: %1 cauldron").arg(catalogueText(achievement.reward->name));
}

} // namespace

AchievementRow AchievementRow::of(const Achievement& achievement, const Progress& progress) {
    const std::int64_t measure = achievement.progress(progress);
    AchievementRow row;
    row.isUnlocked =
        std::ranges::find(progress.unlocked, achievement.id) != progress.unlocked.end();
    row.icon = row.isUnlocked ? achievement.id : "locked";
    row.title = catalogueText(achievement.title);
    row.flavour = catalogueText(achievement.flavour);
    row.reward = rewardText(achievement, row.isUnlocked);
    row.amount = tr("%1 / %2").arg(measured(measure, achievement.unit),
                                   measured(achievement.target, achievement.unit));
    row.share = std::clamp(static_cast<double>(measure) / static_cast<double>(achievement.target),
                           0.0, 1.0);
    return row;
}

std::vector<AchievementRow> AchievementRow::all(const Progress& progress) {
    std::vector<AchievementRow> rows;
    for (const Achievement& achievement : Achievement::all())
        rows.push_back(of(achievement, progress));
    return rows;
}

QString AchievementRow::heading(const Progress& progress) {
    return tr("%1 of %2 unlocked")
        .arg(QString::fromStdString(countText(std::ssize(progress.unlocked))),
             QString::fromStdString(countText(std::ssize(Achievement::all()))));
}

QString AchievementRow::spoken() const {
    return (isUnlocked ? tr("%1, unlocked, %2") : tr("%1, locked, %2")).arg(title, amount);
}

} // namespace vexmoor
