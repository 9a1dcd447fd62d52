#include "DesktopTest.h"

namespace vexmoor {
namespace {

using namespace test;

using KeyboardTest = DesktopTest;

TEST_F(KeyboardTest, OpensTheTilesMenuInTheWindow) {
    openSession();
    start({});
    const auto hasFocus = [&](auto isIt) {
        return eventually([&] {
            const auto active = session->screen().active();
            return active && isIt(*active);
        });
    };
    ASSERT_TRUE(hasFocus([](const SeenWindow& window) { return window.title == "Vexmoor"; }));
    session->press("Menu");
    const auto menu = [&] {
        return session->screen().find([](const SeenWindow& window) {
            return !window.isManaged && !window.isDock && window.className == Cauldron::kName;
        });
    };
    ASSERT_TRUE(eventually([&] { return menu().has_value(); }));
    session->screen().keepPicture("menu-by-key");
    session->press("Down Down Down Down Down Return"); // disabled entries are skipped
    EXPECT_TRUE(eventually([&] { return cauldron->setting("mode") == "dissolve"; }));
}

} // namespace
} // namespace vexmoor
