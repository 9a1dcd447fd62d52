#include "WindowFixture.h"

#include "ui/CauldronView.h"
#include "ui/Motion.h"

#include "art/CauldronArt.h"

namespace vexmoor {
namespace {

using namespace test;

struct CauldronViewTest : WindowFixture {
    /// Returns the view's picture on a transparent background.
    static QImage shown(QWidget& view) {
        QImage image(view.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        view.render(&image, {}, {}, QWidget::RenderFlags());
        return image;
    }
    static PixelCanvas pot(int tick, const Skin& skin) {
        return CauldronArt::idle(tick, false, 0, skin).crop(0, 20, 34, 34);
    }
};

TEST_F(CauldronViewTest, ShowsTheIdlingPotWithSharpPixels) {
    for (const int size : {34, 102, 136}) {
        CauldronView view(Skin::frost(), size, nullptr, makeTimer());
        EXPECT_EQ(view.size(), QSize(size, size));
        EXPECT_EQ(shown(view), pot(0, Skin::frost()).nsImage(size / 34));
    }
    CauldronView view(Skin::frost(), 64, nullptr, makeTimer());
    const PixelCanvas canvas = pot(0, Skin::frost());
    const QImage image = shown(view);
    const QImage source = canvas.bitmapRep();
    QSet<QRgb> colours;
    for (int y = 0; y < 34; ++y)
        for (int x = 0; x < 34; ++x)
            colours.insert(source.pixel(x, y));
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            ASSERT_TRUE(colours.contains(image.pixel(x, y))) << "no colour is blended";
}

TEST_F(CauldronViewTest, RunsAtEightFramesPerSecondOnlyWhileVisible) {
    CauldronView view(Skin::iron(), 102, nullptr, makeTimer());
    const ManualTimer* const timer = timers.front();
    EXPECT_FALSE(timer->fire);
    view.show();
    ASSERT_TRUE(timer->fire);
    EXPECT_DOUBLE_EQ(timer->seconds, 0.125);
    for (int tick = 1; tick <= 21; ++tick)
        timer->fire();
    EXPECT_EQ(shown(view), pot(21, Skin::iron()).nsImage(3));
    view.hide();
    EXPECT_FALSE(timer->fire);
    view.setSkin(Skin::gold());
    EXPECT_EQ(shown(view), pot(21, Skin::gold()).nsImage(3));
    view.show();
    timer->fire();
    EXPECT_EQ(shown(view), pot(22, Skin::gold()).nsImage(3)) << "it continues at the same tick";
    setReducedMotion(true);
    EXPECT_FALSE(timer->fire);
    setReducedMotion(false);
    EXPECT_TRUE(timer->fire);
}

TEST_F(CauldronViewTest, CrispSideUsesWholePixels) {
    struct Case {
        int most;
        double ratio;
        int side;
        int pixels;
    };
    for (const auto& [most, ratio, side, pixels] : {
             Case{280, 1, 272, 272}, Case{271, 1, 238, 238}, Case{280, 2, 272, 544},
             Case{270, 2, 255, 510}, Case{280, 1.25, 272, 340}, Case{210, 1.25, 190, 238},
             Case{280, 1.5, 272, 408}, Case{280, 1.75, 272, 476},
             Case{10, 1, 10, 10}, // smaller than the canvas
         }) {
        EXPECT_EQ(CauldronView::crispSide(most, ratio), side) << most << " at " << ratio;
        EXPECT_EQ(qRound(side * ratio), pixels);
    }
}

TEST_F(CauldronViewTest, ChangesItsSide) {
    CauldronView view(Skin::gold(), 102, nullptr, makeTimer());
    view.setSide(170);
    EXPECT_EQ(view.size(), QSize(170, 170));
    EXPECT_EQ(view.sizeHint(), QSize(170, 170));
    EXPECT_EQ(shown(view), pot(0, Skin::gold()).nsImage(5));
}

} // namespace
} // namespace vexmoor
