#include "GermanFixture.h"

#include "ui/AccentButton.h"
#include "ui/HistoryFooter.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;

/// German has the longest labels.
using HistoryFooterTest = GermanFixture;

TEST_F(HistoryFooterTest, ShowsWholeButtonsThatDoNotOverlap) {
    HistoryFooter footer;
    footer.show();
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft})
        for (const std::size_t picked : {0, 1, 40})
            for (const int width : {360, 420, 600, 1200}) {
                footer.setLayoutDirection(direction);
                footer.resize(width, footer.sizeHint().height());
                footer.setCounts(picked, picked);
                QRegion taken;
                int shown = 0;
                for (const AccentButton* const button : footer.findChildren<AccentButton*>()) {
                    if (!button->isVisible())
                        continue;
                    ++shown;
                    EXPECT_TRUE(footer.rect().contains(button->geometry()));
                    EXPECT_FALSE(taken.intersects(button->geometry()))
                        << button->text().toStdString() << " at " << width << ", " << picked;
                    EXPECT_GE(button->width(), button->sizeHint().width())
                        << button->text().toStdString() << " at " << width << ", " << picked;
                    taken += button->geometry();
                }
                EXPECT_GE(shown, picked > 0 ? 2 : 1) << width;
            }
}

} // namespace
} // namespace vexmoor
