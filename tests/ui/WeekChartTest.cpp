#include "WindowFixture.h"

#include "ui/DayBar.h"
#include "ui/WeekChart.h"

#include <QAccessible>

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using namespace test;

struct WeekChartTest : WindowFixture {
    WeekChart chart;

    void show(const std::vector<std::int64_t>& counts) {
        std::vector<Ledger::DayOfWeek> week;
        Date day = utc("2026-11-16 00:00:00");
        for (const std::int64_t count : counts) {
            week.push_back({day, {static_cast<int>(count), count * 1000}});
            day.secondsSinceReference += 86400;
        }
        chart.setWeek(week);
    }
    [[nodiscard]] std::vector<DayBar*> bars() const {
        const auto found = chart.findChildren<DayBar*>();
        return {found.begin(), found.end()};
    }
    [[nodiscard]] std::vector<double> shares() const {
        std::vector<double> all;
        for (const DayBar* const bar : bars())
            all.push_back(bar->share());
        return all;
    }
};

TEST_F(WeekChartTest, ScalesBarsByTheMaximum) {
    EXPECT_EQ(chart.peak(), 1);
    show({0, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(chart.peak(), 1);
    EXPECT_THAT(shares(), testing::Each(0));
    EXPECT_EQ(chart.caption(), "Today · nothing fed");
    show({1, 0, 4, 2, 0, 0, 1});
    EXPECT_EQ(chart.peak(), 4);
    EXPECT_THAT(shares(), testing::ElementsAre(0.25, 0, 1, 0.5, 0, 0, 0.25));
}

TEST_F(WeekChartTest, DescribesTodayOrTheHoveredOrSelectedBar) {
    chart.setLocale(QLocale("en_GB"));
    show({1, 0, 4, 2, 0, 0, 46});
    const auto expectCaption = [this](std::optional<int> hovered, const char* caption) {
        EXPECT_EQ(chart.hovered(), hovered);
        EXPECT_EQ(chart.caption(), caption);
        for (int i = 0; i < WeekChart::kDays; ++i)
            EXPECT_EQ(bars()[static_cast<std::size_t>(i)]->isDescribed(), i == hovered.value_or(6));
    };
    expectCaption(std::nullopt, "Today · 46 items · 46 KB");
    emit bars()[2]->pointed(true);
    expectCaption(2, "Wednesday, 18 November · 4 items · 4 KB");
    emit bars()[3]->pointed(true);
    emit bars()[2]->pointed(false); // the pointer leaves a bar after entering the next
    expectCaption(3, "Thursday, 19 November · 2 items · 2 KB");
    emit bars()[3]->pointed(false);
    expectCaption(std::nullopt, "Today · 46 items · 46 KB");
    press(chart, Qt::Key_Left);
    expectCaption(5, "Saturday, 21 November · nothing fed");
    press(chart, Qt::Key_Home);
    press(chart, Qt::Key_Left);
    expectCaption(0, "Monday, 16 November · 1 item · 1 KB");
    chart.setLayoutDirection(Qt::RightToLeft);
    press(chart, Qt::Key_Left);
    expectCaption(1, "Tuesday, 17 November · nothing fed");
}

TEST_F(WeekChartTest, ScreenReadersReadSevenTexts) {
    show({1, 0, 4, 2, 0, 0, 46});
    QStringList names;
    for (DayBar* const bar : bars()) {
        const auto* const face = QAccessible::queryAccessibleInterface(bar);
        EXPECT_EQ(face->role(), QAccessible::StaticText);
        names << face->text(QAccessible::Name).section(" · ", 1);
    }
    EXPECT_EQ(names,
              QStringList({"1 item · 1 KB", "nothing fed", "4 items · 4 KB", "2 items · 2 KB",
                           "nothing fed", "nothing fed", "46 items · 46 KB"}));
}

} // namespace
} // namespace vexmoor
