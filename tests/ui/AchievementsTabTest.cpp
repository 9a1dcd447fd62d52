#include "TabFixture.h"

#include "ui/Accent.h"
#include "ui/AchievementRowView.h"
#include "ui/AchievementsTab.h"
#include "ui/TextStyle.h"

#include "progression/Achievement.h"

#include <QLabel>
#include <QScrollBar>

#include <gmock/gmock.h>

#include <algorithm>

namespace vexmoor {
namespace {

using namespace test;

TEST(AchievementRowTest, ShowsStateAndProgress) {
    Progress progress;
    progress.items = 428;
    progress.bytes = 38'600'000'000;
    progress.streak = 2;
    progress.bestStreak = 12;
    progress.extensions = {"jpg", "txt"};
    struct Case {
        std::string_view id;
        bool isUnlocked;
        std::string_view icon;
        QString reward;
        QString amount;
        double share;
    };
    const Case cases[] = {
        {"first", false, "locked", "", "428 / 1", 1},
        {"first", true, "first", "", "428 / 1", 1},
        {"items1k", false, "locked", "Reward: Lava cauldron", "428 / 1,000", 0.428},
        {"items1k", true, "items1k", "Reward: Lava cauldron", "428 / 1,000", 0.428},
        {"items10k", false, "locked", "Reward: ???", "428 / 10,000", 0.0428},
        {"items10k", true, "items10k", "Reward: Gold cauldron", "428 / 10,000", 0.0428},
        {"gb1", true, "gb1", "Reward: Witchfire cauldron", "38.6 GB / 1.07 GB", 1},
        {"big1gb", false, "locked", "", "Zero KB / 1.07 GB", 0},
        {"streak30", false, "locked", "Reward: Frost cauldron", "12 / 30", 0.4},
        {"omnivore", false, "locked", "", "2 / 25", 0.08},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(std::string(expected.id) + (expected.isUnlocked ? ", unlocked" : ""));
        progress.unlocked.clear();
        if (expected.isUnlocked)
            progress.unlocked.emplace_back(expected.id);
        const auto& achievement =
            *std::ranges::find(Achievement::all(), expected.id, &Achievement::id);
        const auto row = AchievementRow::of(achievement, progress);
        EXPECT_EQ(row.isUnlocked, expected.isUnlocked);
        EXPECT_EQ(row.icon, expected.icon);
        EXPECT_EQ(row.title.toStdString(), achievement.title);
        EXPECT_EQ(row.flavour.toStdString(), achievement.flavour);
        EXPECT_EQ(row.reward, expected.reward);
        EXPECT_EQ(row.amount, expected.amount);
        EXPECT_NEAR(row.share, expected.share, 1e-9);
    }
}

struct AchievementsTabTest : TabFixture {
    AchievementsTab tab{progression};
    QList<AchievementRowView*> rows{tab.findChildren<AchievementRowView*>()};

    [[nodiscard]] QString heading() const { return tab.findChild<QLabel*>()->text(); }
};

TEST_F(AchievementsTabTest, ReadsTitleStateAndProgressOfEachAchievement) {
    EXPECT_EQ(heading(), "0 of 19 unlocked");
    ASSERT_EQ(rows.size(), std::ssize(Achievement::all()));
    for (qsizetype index = 0; index < rows.size(); ++index) {
        const auto row =
            AchievementRow::of(Achievement::all()[static_cast<std::size_t>(index)], {});
        EXPECT_EQ(spoken(rows[index]), row.title + ", locked, " + row.amount);
        EXPECT_EQ(face(rows[index]).role(), QAccessible::ListItem);
        EXPECT_EQ(face(rows[index]).parent()->role(), QAccessible::List);
        EXPECT_TRUE(description(rows[index]).startsWith(row.flavour));
    }
    EXPECT_TRUE(description(rows[3]).endsWith("Reward: Lava cauldron"));
}

TEST_F(AchievementsTabTest, FollowsTheProgressionWhileVisible) {
    feed({1000});
    EXPECT_EQ(heading(), "0 of 19 unlocked") << "a hidden tab does not update";
    tab.show();
    EXPECT_EQ(heading(), "1 of 19 unlocked");
    EXPECT_EQ(spoken(rows[0]), "First Offering, unlocked, 1 / 1");
    feed(std::vector<std::int64_t>(9, 1000));
    EXPECT_EQ(heading(), "2 of 19 unlocked");
    EXPECT_EQ(spoken(rows[1]), "Getting Warm, unlocked, 10 / 10");
}

TEST_F(AchievementsTabTest, ArrowKeysMoveThroughRowsAndScroll) {
    focus(tab, rows[0]);
    const QImage plain = rows[1]->grab().toImage();
    press(*rows[0], Qt::Key_Up);
    EXPECT_TRUE(rows[0]->hasFocus());
    press(*rows[0], Qt::Key_Down);
    EXPECT_TRUE(rows[1]->hasFocus());
    EXPECT_NE(rows[1]->grab().toImage(), plain) << "the focus ring is missing";
    EXPECT_EQ(tab.verticalScrollBar()->value(), 0);
    press(*rows[1], Qt::Key_End);
    EXPECT_TRUE(rows.last()->hasFocus());
    EXPECT_GT(tab.verticalScrollBar()->value(), 0);
    EXPECT_FALSE(rows.last()->visibleRegion().isEmpty());
    EXPECT_TRUE(rows.last()->focusPolicy() & Qt::TabFocus) << "Tab must return to it";
    EXPECT_FALSE(rows[0]->focusPolicy() & Qt::TabFocus);
}

TEST_F(AchievementsTabTest, UsesTheSkinsAccent) {
    feed({1000});
    tab.show();
    const QColor accent = Accent::of(Skin::cobalt(), groundOf(tab.palette())).colour;
    EXPECT_FALSE(holds(rows[3]->grab().toImage(), accent));
    tab.setSkin(Skin::cobalt());
    progression.unlockAll();
    EXPECT_TRUE(holds(rows[3]->grab().toImage(), accent));
}

TEST_F(AchievementsTabTest, NoTextIsTruncatedAtAnyWidth) {
    for (const int width : {360, 600, 1200}) {
        tab.resize(width, 450);
        tab.show();
        QCoreApplication::processEvents();
        for (const auto* const row : rows) {
            EXPECT_GE(row->height(), row->heightForWidth(row->width())) << width;
            EXPECT_LE(row->width(), 576);
            EXPECT_LE(row->mapTo(&tab, QPoint()).x() + row->width(), width - 12);
        }
        tab.hide();
    }
}

} // namespace
} // namespace vexmoor
