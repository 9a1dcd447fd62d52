#include "WindowFixture.h"

#include "ui/CauldronDemoView.h"
#include "ui/Motion.h"

#include "art/BurnCurve.h"
#include "art/CauldronArt.h"

namespace vexmoor {
namespace {

using namespace test;

QImage document() {
    QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::red);
    return image;
}

QImage idle(int tick, double moment, const Skin& skin) {
    return CauldronArt::idle(tick, false, moment - tick, skin).nsImage(2);
}

QImage burn(double t, double height, const Skin& skin) {
    return CauldronArt::burn({.t = t,
                              .height = height,
                              .icon = document(),
                              .seed = BurnCurve::frameSeed(1, t),
                              .lift = CauldronArt::hoverLift(3, skin),
                              .skin = skin})
        .scene.nsImage(2);
}

TEST(CauldronDemoScene, IdlesBurnsAndIdlesAgain) {
    for (const Skin* skin : {&Skin::iron(), &Skin::starlight(), &Skin::voidSkin()}) {
        const std::pair<int, QImage> frames[] = {
            {0, idle(0, 0, *skin)},          {2, idle(0, 0, *skin)},
            {29, idle(9, 3, *skin)},         {30, burn(0, 0, *skin)},
            {65, burn(1, 0, *skin)},         {66, idle(22, 22.0 / 3, *skin)},
            {80, idle(26, 26.0 / 3, *skin)}, {81, idle(0, 0, *skin)},
            {111, burn(0, 0, *skin)},
        };
        for (const auto& [frame, picture] : frames)
            EXPECT_EQ(CauldronDemoView::scene(frame, *skin, document()).nsImage(2), picture)
                << skin->id << " at " << frame;
    }
}

TEST(CauldronDemoScene, ShowsPotFlameAndDocument) {
    const QImage picture = CauldronDemoView::scene(44, Skin::iron(), document()).bitmapRep();
    const QImage whole = CauldronDemoView::scene(44, Skin::iron(), document()).nsImage(1);
    EXPECT_NE(picture, whole) << "the document is an overlay";
    EXPECT_NE(qAlpha(picture.pixel(17, 6)), 0) << "the flame's upper part";
    EXPECT_NE(qAlpha(picture.pixel(17, 50)), 0) << "the pot";
}

struct CauldronDemoViewTest : WindowFixture {
    ~CauldronDemoViewTest() override { setReducedMotion(false); }
};

TEST_F(CauldronDemoViewTest, RunsOnlyWhileVisibleWithoutReducedMotion) {
    CauldronDemoView view(Skin::iron(), 3, nullptr, makeTimer());
    const ManualTimer* const timer = timers.front();
    EXPECT_EQ(view.size(), QSize(102, 162));
    EXPECT_FALSE(timer->fire);
    view.show();
    ASSERT_TRUE(timer->fire);
    EXPECT_DOUBLE_EQ(timer->seconds, 1.0 / 24);
    const QImage first = view.grab().toImage();
    for (int frame = 0; frame < 45; ++frame)
        timer->fire();
    const QImage burning = view.grab().toImage();
    EXPECT_NE(burning, first);
    setReducedMotion(true);
    EXPECT_FALSE(timer->fire);
    const QImage still = view.grab().toImage();
    EXPECT_NE(still, first) << "it shows the burn";
    view.hide();
    view.show();
    EXPECT_FALSE(timer->fire);
    setReducedMotion(false);
    ASSERT_TRUE(timer->fire);
    EXPECT_EQ(view.grab().toImage(), burning) << "it continues at the same frame";
    view.setSkin(Skin::cobalt());
    EXPECT_NE(view.grab().toImage(), burning);
    view.hide();
    EXPECT_FALSE(timer->fire);
}

} // namespace
} // namespace vexmoor
