#include "TabFixture.h"

#include "ui/SkinCardView.h"
#include "ui/SkinsTab.h"

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using namespace test;

TEST(UnlockHintTest, NamesTheAchievementUnlessItIsSecret) {
    EXPECT_EQ(unlockHint(Skin::iron()), std::nullopt);
    EXPECT_EQ(unlockHint(Skin::copper()), "Getting Warm");
    EXPECT_EQ(unlockHint(Skin::gold()), "a very hard achievement");
}

struct SkinsTabTest : TabFixture {
    SkinsTab tab{progression};
    QList<SkinCardView*> cards{tab.findChildren<SkinCardView*>()};

    [[nodiscard]] SkinCardView* card(const Skin& skin) const {
        return cards[&*std::ranges::find(Skin::all(), skin.id, &Skin::id) - Skin::all().data()];
    }
    void select(const Skin& skin) const { click(*card(skin), {20, 20}); }
};

TEST_F(SkinsTabTest, LockedSkinsShowHowToUnlockThem) {
    tab.show();
    ASSERT_EQ(cards.size(), std::ssize(Skin::all()));
    EXPECT_EQ(description(card(Skin::iron())), "The one you started with.");
    EXPECT_EQ(description(card(Skin::lava())), "Locked: Bottomless");
    EXPECT_EQ(card(Skin::gold())->toolTip(), "Locked: a very hard achievement");
    for (const auto* const each : cards)
        EXPECT_EQ(each->isEnabled(), each == card(Skin::iron()));
    select(Skin::lava());
    EXPECT_EQ(progression.progress().skin, "iron");
}

TEST_F(SkinsTabTest, ClickingSelects) {
    progression.unlockAll();
    tab.show();
    EXPECT_EQ(description(card(Skin::gold())).toStdString(), Skin::gold().blurb);
    select(Skin::gold());
    EXPECT_EQ(progression.progress().skin, "gold");
    select(Skin::gold());
    progression.select(Skin::frost()); // changed elsewhere
    for (auto* const each : cards) {
        const bool isChosen = each == card(Skin::frost());
        EXPECT_EQ(face(each).state().checked, isChosen);
        EXPECT_EQ(face(each).role(), QAccessible::RadioButton);
        EXPECT_EQ(each->isChecked(), isChosen);
    }
    EXPECT_EQ(spoken(card(Skin::frost())), "Frost");
}

TEST_F(SkinsTabTest, ArrowKeysSkipLockedSkins) {
    feed(std::vector<std::int64_t>(1000, 2'000'000)); // unlocks copper, cobalt, witchfire, lava
    focus(tab, card(Skin::iron()));
    const std::pair<Qt::Key, const Skin*> steps[] = {
        {Qt::Key_Left, &Skin::iron()},      {Qt::Key_Right, &Skin::copper()},
        {Qt::Key_Down, &Skin::copper()},    {Qt::Key_Left, &Skin::iron()},
        {Qt::Key_Down, &Skin::witchfire()}, {Qt::Key_Right, &Skin::lava()},
        {Qt::Key_Up, &Skin::witchfire()},   {Qt::Key_End, &Skin::lava()},
        {Qt::Key_Home, &Skin::iron()},
    };
    for (const auto& [key, skin] : steps) {
        press(*QApplication::focusWidget(), key);
        EXPECT_TRUE(card(*skin)->hasFocus()) << skin->id;
    }
    EXPECT_EQ(progression.progress().skin, "iron") << "moving does not select";
    press(*card(Skin::copper()), Qt::Key_Return);
    EXPECT_EQ(progression.progress().skin, "copper");
    press(*card(Skin::lava()), Qt::Key_Space);
    EXPECT_EQ(progression.progress().skin, "lava");
}

TEST_F(SkinsTabTest, ArrowKeysAreMirroredWithTheGrid) {
    progression.unlockAll();
    tab.setLayoutDirection(Qt::RightToLeft);
    focus(tab, card(Skin::iron()));
    EXPECT_GT(card(Skin::iron())->x(), card(Skin::copper())->x());
    press(*card(Skin::iron()), Qt::Key_Left);
    EXPECT_TRUE(card(Skin::copper())->hasFocus());
}

TEST_F(SkinsTabTest, UnlockedSkinFadesIn) {
    tab.resize(360, 450);
    tab.show();
    const auto picture = [this] { return card(Skin::copper())->grab().toImage(); };
    const QImage asleep = picture();
    const QColor metal(Skin::copper().bodyColour.r, Skin::copper().bodyColour.g,
                       Skin::copper().bodyColour.b);
    EXPECT_FALSE(holds(asleep, metal));
    feed(std::vector<std::int64_t>(10, 1));
    EXPECT_FALSE(holds(picture(), metal)) << "it starts as a silhouette";
    EXPECT_TRUE(eventuallyInLoop([&] { return holds(picture(), metal); }));
}

TEST_F(SkinsTabTest, TheGridGrowsWithTheWindow) {
    for (const auto& [width, columns] : {std::pair{360, 3}, {700, 4}, {1200, 5}}) {
        tab.resize(width, 450);
        tab.show();
        QCoreApplication::processEvents();
        const auto first = std::ranges::count_if(
            cards, [this](const QWidget* card) { return card->y() == cards[0]->y(); });
        EXPECT_EQ(first, columns) << width;
        tab.hide();
    }
}

} // namespace
} // namespace vexmoor
