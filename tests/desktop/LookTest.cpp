#include "DesktopTest.h"

namespace vexmoor {
namespace {

using namespace test;

struct Look {
    const char* name;
    DesktopSession::Setting setting;

    friend void PrintTo(const Look& look, std::ostream* out) { *out << look.name; }
};

struct LookTest : DesktopTest, testing::WithParamInterface<Look> {};

/// The pictures are kept for people to look at.
TEST_P(LookTest, ShowsWindowTileAndFlamesAtItsScale) {
    openSession(GetParam().setting);
    start({});
    const double scale = GetParam().setting.scale;
    const QSize side = (QSizeF(102, 102) * scale).toSize();
    EXPECT_EQ(cauldron->tile().value().frame.size(), side);
    ASSERT_TRUE(eventually([&] { return cauldron->statsWindow().has_value(); }));
    ASSERT_EQ(cauldron->feed({session->write("notes.txt", "x")}), 0);
    EXPECT_TRUE(cauldron->burns());
    session->screen().keepPicture(std::string("look-") + GetParam().name);
    EXPECT_EQ(cauldron->flames().value().frame.width(), side.width());
    EXPECT_EQ(quit(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    , LookTest,
    testing::Values(Look{"1x", {}}, Look{"1x-composited", {.compositor = true}},
                    Look{"2x", {.size = "2560x1600", .scale = 2}},
                    Look{"2x-composited", {.size = "2560x1600", .compositor = true, .scale = 2}}),
    [](const auto& look) {
        return std::string(look.param.setting.compositor ? "Composited" : "Plain") +
               (look.param.setting.scale > 1 ? "Twofold" : "Single");
    });

} // namespace
} // namespace vexmoor
