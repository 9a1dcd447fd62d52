#include "dock/PixelImage.h"

#include <gtest/gtest.h>

#include <numeric>

namespace vexmoor {
namespace {

constexpr Pixel kRed{255, 0, 0, 255};
constexpr Pixel kBlue{0, 0, 255, 255};

PixelCanvas canvas() {
    PixelCanvas made(3, 2);
    made.set(0, 0, kRed);
    made.set(1, 0, {9, 9, 9, 127});
    made.set(2, 0, kBlue);
    made.set(0, 1, kRed);
    made.set(2, 1, {0, 0, 255, 128});
    return made;
}

TEST(PixelImageTest, FillsTheSizeWithHardEdges) {
    for (const QSize size : {QSize(9, 6), QSize(7, 5), QSize(2, 2), QSize(30, 40)}) {
        const QImage image = enlarged(canvas(), size);
        ASSERT_EQ(image.size(), size);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                const int alpha = qAlpha(image.pixel(x, y));
                EXPECT_TRUE(alpha == 0 || alpha == 127 || alpha == 128 || alpha == 255) << alpha;
            }
        }
    }
    EXPECT_EQ(enlarged(canvas(), {9, 6}), canvas().nsImage(3));
}

TEST(PixelImageTest, ShapesAWindowByOpacity) {
    const std::vector<QRect> expected{{0, 0, 3, 6}, {6, 0, 3, 6}};
    EXPECT_EQ(opaqueShape(canvas().nsImage(3)), expected);

    PixelCanvas steps(2, 3);
    steps.set(0, 0, kRed);
    steps.set(0, 2, kRed);
    steps.set(1, 2, kRed);
    const std::vector<QRect> rows{{0, 0, 1, 1}, {0, 2, 2, 1}};
    EXPECT_EQ(opaqueShape(steps.nsImage(1)), rows);
    EXPECT_TRUE(opaqueShape(PixelCanvas(3, 3).nsImage(2)).empty());
}

TEST(PixelImageTest, DrawsARingAroundThePicture) {
    PixelCanvas dot(5, 5);
    dot.set(2, 2, kRed);
    PixelCanvas expected = dot;
    for (const auto& [x, y] : {std::pair(1, 2), {3, 2}, {2, 1}, {2, 3}})
        expected.set(x, y, kBlue);
    EXPECT_EQ(ringed(dot.nsImage(2), 2, QColor(0, 0, 255)), expected.nsImage(2));
}

} // namespace
} // namespace vexmoor
