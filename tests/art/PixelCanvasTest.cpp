#include "art/PixelCanvas.h"
#include "art/OverlayRenderer.h"

#include "skins/PixelPrinter.h"

#include <gtest/gtest.h>

#include <QPainter>

#include <numbers>

namespace vexmoor {

namespace {

constexpr Pixel kRed{255, 0, 0, 255};
constexpr Pixel kGreen{0, 255, 0, 255};

PixelCanvas::Overlay overlayAt(int x, int y, int w, int h) {
    QImage image(w, h, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::blue);
    return {.image = image, .x = x, .y = y, .w = w, .h = h};
}

/// An image of four colours (red, green above blue, yellow), so that every wrong rotation or flip
/// shows.
QImage quarters(int side) {
    QImage image(side, side, QImage::Format_ARGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const bool right = x >= side / 2;
            const bool below = y >= side / 2;
            image.setPixel(x, y,
                           below ? (right ? 0xFFFFFF00 : 0xFF0000FF)
                                 : (right ? 0xFF00FF00 : 0xFFFF0000));
        }
    }
    return image;
}

/// Returns the initials of the colours at the corners and at the quarters' centres of an 8 × 8
/// rectangle.
std::string quarterLetters(const QImage& image, int left, int top) {
    std::string letters;
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 2; ++column) {
            const QColor color = image.pixelColor(left + 2 + 4 * column, top + 2 + 4 * row);
            letters += color.red() > 128 ? (color.green() > 128 ? 'Y' : 'R')
                                         : (color.green() > 128 ? 'G' : 'B');
        }
    }
    return letters;
}

TEST(PixelCanvasTest, IsTransparentOutsideAndIgnoresWritesThere) {
    PixelCanvas canvas(2, 2);
    const PixelCanvas untouched = canvas;
    const int outside[][2] = {{-1, 0}, {2, 0}, {0, -1}, {0, 2}};
    for (const auto& [x, y] : outside) {
        canvas.set(x, y, kRed);
        canvas.blend(x, y, kRed);
        EXPECT_EQ(canvas.at(x, y), Pixel{});
    }
    EXPECT_EQ(canvas, untouched);
}

TEST(PixelCanvasTest, MergesPixelsAndOverlaysAtAnOffset) {
    PixelCanvas below(6, 6);
    below.set(3, 4, kRed);
    below.set(4, 4, kRed);
    below.addOverlay(overlayAt(1, 1, 1, 1));
    PixelCanvas above(9, 9);
    above.set(1, 0, kGreen);
    above.set(2, 0, {0, 0, 255, 128});
    above.set(8, 8, kGreen);
    above.addOverlay(overlayAt(10, 20, 1, 1));

    below.merge(above, 3, 4);

    EXPECT_EQ(below.at(3, 4), kRed);
    EXPECT_EQ(below.at(4, 4), kGreen);
    EXPECT_EQ(below.at(5, 4), (Pixel{0, 0, 255, 128}));
    ASSERT_EQ(below.overlays().size(), 2U);
    EXPECT_EQ(below.overlays()[0].x, 1);
    EXPECT_EQ(below.overlays()[1].x, 13);
    EXPECT_EQ(below.overlays()[1].y, 24);

    PixelCanvas corner(2, 2);
    corner.merge(above, -8, -8);
    EXPECT_EQ(corner.at(0, 0), kGreen);
}

TEST(PixelCanvasTest, CropKeepsOverlaysThatTouch) {
    PixelCanvas canvas(4, 4);
    canvas.set(0, 0, kRed);
    canvas.set(3, 3, kGreen);
    struct Case {
        const char* what;
        PixelCanvas::Overlay overlay;
        bool kept;
    };
    const Case cases[] = {
        {"ends at the left edge", overlayAt(-3, 0, 2, 2), false},
        {"one pixel in from the left", overlayAt(-2, 0, 2, 2), true},
        {"ends at the top edge", overlayAt(0, -3, 2, 2), false},
        {"one pixel in from the top", overlayAt(0, -2, 2, 2), true},
        {"last column", overlayAt(1, 0, 2, 2), true},
        {"beyond the last column", overlayAt(2, 0, 2, 2), false},
        {"beyond the last row", overlayAt(0, 2, 2, 2), false},
    };
    for (const Case& c : cases) {
        canvas.removeOverlays();
        canvas.addOverlay(c.overlay);
        const PixelCanvas cropped = canvas.crop(-1, -1, 3, 3);
        EXPECT_EQ(cropped.overlays().size(), c.kept ? 1U : 0U) << c.what;
        EXPECT_EQ(cropped.at(1, 1), kRed);
        EXPECT_EQ(cropped.at(0, 0), Pixel{});
        if (!cropped.overlays().empty()) {
            EXPECT_EQ(cropped.overlays()[0].x, c.overlay.x + 1) << c.what;
        }
    }
}

TEST(PixelCanvasTest, EnlargesToPremultipliedBlocks) {
    PixelCanvas canvas(2, 1);
    canvas.set(0, 0, {255, 100, 3, 128});
    canvas.set(1, 0, kGreen);
    EXPECT_EQ(canvas.bitmapRep().pixel(0, 0), canvas.nsImage(1).pixel(0, 0));
    const QImage image = canvas.nsImage(3);
    ASSERT_EQ(image.size(), QSize(6, 3));
    EXPECT_EQ(image.format(), QImage::Format_ARGB32_Premultiplied);
    const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(2));
    EXPECT_EQ(line[2], 0x80803202U);
    EXPECT_EQ(line[3], 0xFF00FF00U);
    EXPECT_TRUE(canvas.nsImage(0).isNull());
    EXPECT_TRUE(canvas.nsImage(-1).isNull());
    EXPECT_FALSE(canvas.pngData(0));
    EXPECT_EQ(QImage::fromData(canvas.pngData(2).value()).size(), QSize(4, 2));
}

TEST(PixelCanvasTest, DrawsOverlaysRightWayUpInTheirRectangle) {
    struct Case {
        const char* what;
        double angle;
        bool crisp;
        const char* letters;
    };
    constexpr double kQuarter = std::numbers::pi / 2;
    const Case cases[] = {
        {"upright", 0, false, "RGBY"},
        {"crisp", 0, true, "RGBY"},
        {"a quarter counter-clockwise", kQuarter, false, "GYRB"},
        {"a quarter clockwise", -kQuarter, false, "BRYG"},
        {"upside down", 2 * kQuarter, false, "YBGR"},
        {"nearly upright", 0.2, false, "RGBY"},
    };
    for (const Case& c : cases) {
        PixelCanvas canvas(20, 20);
        canvas.addOverlay({.image = quarters(32),
                           .x = 3,
                           .y = 6,
                           .w = 8,
                           .h = 8,
                           .detail = 2,
                           .crisp = c.crisp,
                           .angle = c.angle});
        const QImage image = canvas.nsImage(1);
        EXPECT_EQ(quarterLetters(image, 3, 6), c.letters) << c.what;
        EXPECT_EQ(image.pixel(2, 9), 0U) << c.what;
        EXPECT_EQ(image.pixel(11, 9), 0U) << c.what;
        EXPECT_EQ(image.pixel(6, 5), 0U) << c.what;
        EXPECT_EQ(image.pixel(6, 14), 0U) << c.what;
    }
}

TEST(PixelCanvasTest, MasksFadesAndShiftsOverlays) {
    PixelCanvas::Overlay overlay = overlayAt(1, 1, 2, 2);
    overlay.detail = 2;
    overlay.opacity = 0.5;
    overlay.xOffset = 0.5;
    overlay.yOffset = -0.25;
    overlay.keep = [](int column, int row) { return column == 3 && row == 0; };
    PixelCanvas canvas(6, 6);
    canvas.addOverlay(overlay);

    const QImage image = canvas.nsImage(4);

    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const bool inside = x >= 12 && x < 14 && y >= 3 && y < 5;
            ASSERT_EQ(image.pixel(x, y), inside ? 0x80000080U : 0U) << x << ' ' << y;
        }
    }
    QImage painted(image.size(), QImage::Format_ARGB32_Premultiplied);
    painted.fill(Qt::transparent);
    QPainter painter(&painted);
    canvas.drawOverlays(painter, 4);
    EXPECT_EQ(painted, image);

    EXPECT_NE(canvas, PixelCanvas(canvas)) << "masks cannot be compared";
}

TEST(PixelCanvasTest, KeepsThePictureProportionsInSquares) {
    QImage wide(4, 2, QImage::Format_RGB32);
    wide.fill(Qt::red);
    const QImage square = squared(wide);
    ASSERT_EQ(square.size(), QSize(4, 4));
    for (int y = 0; y < 4; ++y)
        EXPECT_EQ(square.pixel(3, y), y == 1 || y == 2 ? 0xFFFF0000U : 0U) << y;
    EXPECT_EQ(squared(square), square);
}

} // namespace
} // namespace vexmoor
