#include "app/TileReports.h"

#include "dock/Tile.h"
#include "intake/IntakeFixture.h"
#include "intake/Texts.h"

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

struct SilentTile : Tile {
    void setIcon(const PixelCanvas&) override {}
    void show() override {}
    [[nodiscard]] bool isVisible() const override { return false; }
    void setBadged(bool) override {}
    [[nodiscard]] std::optional<QRectF> frame() const override { return std::nullopt; }
    [[nodiscard]] const Screens& screens() const override { return m_screens; }
    [[nodiscard]] std::unique_ptr<FlameWindow> makeFlames() override { return nullptr; }

  private:
    SessionScreens m_screens;
};

TEST(TileReportsTest, ReportsRejectedDropsAndTheLossOfTheTile) {
    test::Surroundings around;
    SilentTile tile;
    reportFailuresOf(tile, around);
    emit tile.refused(true);
    emit tile.refused(false);
    emit tile.withheld();
    emit tile.lost("broken pipe");
    std::vector<std::string> messages;
    for (const FailureReport& report : around.reports)
        messages.push_back(report.message);
    EXPECT_THAT(messages,
                testing::ElementsAre(foreignReport(true).message, foreignReport(false).message,
                                     withheldReport().message, tileLostReport("").message));
    EXPECT_THAT(around.reports.back().informative, testing::HasSubstr(": broken pipe."));
}

} // namespace
} // namespace vexmoor
