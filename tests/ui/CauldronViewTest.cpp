#include "ui/CauldronView.h"

#include "art/CauldronArt.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

struct ManualTimer : FrameTimer {
    std::function<void()> fire;
    double seconds = 0;
    void start(Interval interval, std::function<void()> callback) override {
        seconds = interval.count();
        fire = std::move(callback);
    }
    void stop() override { fire = nullptr; }
};

struct CauldronViewTest : testing::Test {
    int count = 1;
    char name[5] = "view";
    char* arguments[2] = {name, nullptr};
    QApplication application{count, arguments};
    ManualTimer* timer = nullptr;

    MakeFrameTimer makeTimer() {
        return [this] {
            auto made = std::make_unique<ManualTimer>();
            timer = made.get();
            return made;
        };
    }
    /// What the view shows, on nothing.
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

TEST_F(CauldronViewTest, ShowsTheIdlingPotWithHardEdgesAtItsSize) {
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
            ASSERT_TRUE(colours.contains(image.pixel(x, y))) << "no colour is mixed";
}

TEST_F(CauldronViewTest, MovesAtEightFramesASecondOnlyWhileItIsSeen) {
    CauldronView view(Skin::iron(), 102, nullptr, makeTimer());
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
    EXPECT_EQ(shown(view), pot(22, Skin::gold()).nsImage(3)) << "it goes on where it was";
}

} // namespace
} // namespace vexmoor
