#include "progression/Achievement.h"

#include "progression/Progress.h"

#include <gmock/gmock.h>

#include <sstream>

namespace vexmoor::test {
namespace {

TEST(Achievement, CatalogueHasUnitTargetAndReward) {
    std::ostringstream catalogue;
    for (const auto& achievement : Achievement::all()) {
        constexpr const char* kUnits[] = {"count", "bytes", "days"};
        catalogue << achievement.id << ' ' << kUnits[static_cast<int>(achievement.unit)] << ' '
                  << achievement.target << ' '
                  << (achievement.reward != nullptr ? achievement.reward->id : "-")
                  << (achievement.secret ? " secret" : "") << '\n';
        EXPECT_FALSE(achievement.title.empty());
        EXPECT_TRUE(achievement.flavour.ends_with('.') || achievement.flavour.ends_with('?'));
    }
    EXPECT_EQ(catalogue.str(), "first count 1 -\n"
                               "items10 count 10 copper\n"
                               "items100 count 100 cobalt\n"
                               "items1k count 1000 lava\n"
                               "items10k count 10000 gold secret\n"
                               "gb1 bytes 1073741824 witchfire\n"
                               "gb100 bytes 107374182400 obsidian secret\n"
                               "tb1 bytes 1099511627776 void secret\n"
                               "big1gb bytes 1073741824 -\n"
                               "big50gb bytes 53687091200 abyss secret\n"
                               "folders10 count 10 -\n"
                               "folders100 count 100 rust\n"
                               "folders1k count 1000 mahogany secret\n"
                               "dissolve1 count 1 -\n"
                               "dissolve100 count 100 bone\n"
                               "streak7 days 7 verdigris\n"
                               "streak30 days 30 frost\n"
                               "streak365 days 365 starlight secret\n"
                               "omnivore count 25 -\n");
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
