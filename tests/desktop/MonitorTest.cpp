#include "DesktopTest.h"

#include <cstdlib>

namespace vexmoor {
namespace {

using namespace test;

/// Two monitors side by side.
struct MonitorTest : DesktopTest {
    void SetUp() override {
        DesktopTest::SetUp();
        if (IsSkipped())
            return;
        openSession({.size = "1600x800"});
        session->addMonitor("left", left);
        session->addMonitor("right", right);
        start();
    }
    [[nodiscard]] bool isOn(const QRect& monitor) const {
        return eventually([&] { return monitor.contains(cauldron->tile().value().frame); });
    }

    const QRect left{0, 0, 800, 800};
    const QRect right{800, 0, 800, 800};
};

TEST_F(MonitorTest, KeepsTheTilesPlaceForTheNextStart) {
    ASSERT_TRUE(isOn(left));
    session->drag(cauldron->middle(), {1300, 790});
    const auto isWhereItWasDragged = [&] {
        return eventually([&] {
            const QRect place = cauldron->tile().value().frame;
            return place.bottom() == right.bottom() && std::abs(place.center().x() - 1300) <= 2;
        });
    };
    EXPECT_TRUE(isWhereItWasDragged());
    ASSERT_FALSE(cauldron->statsWindow()) << "a drag is not a click";
    ASSERT_EQ(quit(), 0);
    start();
    EXPECT_TRUE(isWhereItWasDragged());
}

TEST_F(MonitorTest, MovesTheTileFromADisconnectedMonitorAndBack) {
    session->drag(cauldron->middle(), {1590, 300});
    ASSERT_TRUE(isOn(right));
    const QRect place = cauldron->tile().value().frame;
    session->removeMonitor("right");
    ASSERT_TRUE(isOn(left));
    session->screen().keepPicture("monitor-taken-away", left);
    const Path item = session->write("item", "x");
    ASSERT_EQ(cauldron->feed({item}), 0);
    EXPECT_TRUE(eventually([&] {
        const auto flames = cauldron->flames();
        return flames && left.contains(flames->frame);
    })) << "the flames follow the tile";
    EXPECT_TRUE(isGone(item));
    session->addMonitor("right", right);
    EXPECT_TRUE(eventually([&] { return cauldron->tile().value().frame == place; }))
        << "the tile returns";
}

} // namespace
} // namespace vexmoor
