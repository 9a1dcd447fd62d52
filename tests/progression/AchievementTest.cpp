#include "progression/Achievement.h"

#include "progression/Progress.h"

#include <gmock/gmock.h>

#include <set>

namespace vexmoor::test {
namespace {

TEST(Achievement, CatalogueHasUniqueIdsRewardsAndTexts) {
    std::set<std::string_view> ids;
    std::set<const Skin*> rewards;
    for (const auto& achievement : Achievement::all()) {
        EXPECT_TRUE(ids.insert(achievement.id).second) << achievement.id;
        EXPECT_TRUE(achievement.reward == nullptr || rewards.insert(achievement.reward).second)
            << achievement.id;
        EXPECT_FALSE(achievement.title.empty()) << achievement.id;
        EXPECT_TRUE(achievement.flavour.ends_with('.') || achievement.flavour.ends_with('?'));
    }
    EXPECT_EQ(rewards.size() + 1, Skin::all().size()) << "each skin except iron is a reward";
}

TEST(Achievement, MeasuresItsField) {
    Progress progress;
    progress.items = 1;
    progress.bytes = 2;
    progress.biggest = 3;
    progress.folders = 4;
    progress.dissolved = 5;
    progress.streak = 6;
    progress.bestStreak = 7;
    progress.extensions = {"a", "b", "c", "d", "e", "f", "g", "h"};
    std::vector<std::int64_t> measures;
    for (const auto& achievement : Achievement::all())
        measures.push_back(achievement.progress(progress));
    EXPECT_THAT(measures,
                testing::ElementsAre(1, 1, 1, 1, 1, 2, 2, 2, 3, 3, 4, 4, 4, 5, 5, 7, 7, 7, 8));
    progress.streak = 9; // as in a manually edited record
    EXPECT_EQ(Achievement::all()[15].progress(progress), 9);
}

} // namespace
} // namespace vexmoor::test
