#include "ui/Accent.h"
#include "ui/TextStyle.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

QColor colourOf(Pixel pixel) {
    return {pixel.r, pixel.g, pixel.b};
}

TEST(AccentTest, ContrastFollowsWcag) {
    struct Case {
        QRgb one;
        QRgb other;
        double contrast;
    };
    for (const auto& [one, other, expected] : {
             Case{0xFF000000, 0xFFFFFFFF, 21},
             Case{0xFF4FD46F, 0xFF4FD46F, 1},
             Case{0xFF777777, 0xFFFFFFFF, 4.4781},
             Case{0xFF0000FF, 0xFFFFFFFF, 8.5925},
             Case{0xFFFF0000, 0xFF000000, 5.2520},
             Case{0xFF0A0A0A, 0xFF000000, 1.0607},
         }) {
        EXPECT_NEAR(contrast(one, other), expected, 0.0001) << std::hex << one << ' ' << other;
        EXPECT_EQ(contrast(one, other), contrast(other, one));
    }
}

TEST(AccentTest, EachAccentIsReadableOnEveryGreyAndCloseToItsAcid) {
    for (const Skin& skin : Skin::all()) {
        const QColor acid = colourOf(skin.acid);
        for (int grey = 0; grey <= 255; ++grey) {
            const QColor ground(grey, grey, grey);
            const Accent accent = Accent::of(skin, ground);
            SCOPED_TRACE(std::string(skin.id) + " on " + std::to_string(grey));
            ASSERT_GE(contrast(accent.colour, ground), kReadable);
            ASSERT_GE(contrast(accent.text, accent.colour), kReadable);
            ASSERT_GE(contrast(accent.text, accent.strong), kReadable);
            ASSERT_EQ(accent.glow, acid);
            if (contrast(acid, ground) >= kReadable)
                ASSERT_EQ(accent.colour, acid);
            else
                ASSERT_LT(contrast(accent.colour, ground), kReadable * 1.12)
                    << "no more than necessary";
        }
    }
}

TEST(AccentTest, DarkensOnLightWindowsAndLightensOnDarkOnes) {
    const QColor light(0xfb, 0xfb, 0xfc);
    const QColor dark(0x1e, 0x1d, 0x22);
    for (const Skin& skin : Skin::all()) {
        const double acid = relativeLuminance(colourOf(skin.acid));
        EXPECT_LT(relativeLuminance(Accent::of(skin, light).colour), acid) << skin.id;
        EXPECT_GE(relativeLuminance(Accent::of(skin, dark).colour), acid) << skin.id;
        for (const QColor& ground : {light, dark})
            EXPECT_NE(Accent::of(skin, ground).strong, Accent::of(skin, ground).colour);
        EXPECT_EQ(Accent::of(skin, light).text, QColor(Qt::white));
        EXPECT_EQ(Accent::of(skin, dark).text, QColor(Qt::black));
    }
}

TEST(AccentTest, KeepsTheAcidsHue) {
    for (const Skin& skin : Skin::all()) {
        const int acid = colourOf(skin.acid).hue();
        for (const QColor ground : {QColor(Qt::white), QColor(Qt::black)}) {
            const int turn = std::abs(Accent::of(skin, ground).colour.hue() - acid);
            EXPECT_LE(std::min(turn, 360 - turn), 25) << skin.id;
        }
    }
}

TEST(AccentTest, CaptionsAreFainterThanTextButReadable) {
    struct Case {
        QRgb text;
        QRgb ground;
        bool isFainter;
    };
    for (const auto& [text, ground, isFainter] : {
             Case{0xFF000000, 0xFFFFFFFF, true}, Case{0xFF1D1D1F, 0xFFFBFBFC, true},
             Case{0xFFF2F2F4, 0xFF1E1D22, true}, Case{0xFF586E75, 0xFFFDF6E3, true},
             Case{0xFF606060, 0xFFFFFFFF, true},
             Case{0xFF999999, 0xFFFFFFFF, false}, // the text colour itself has too little contrast
         }) {
        QPalette palette;
        palette.setColor(QPalette::Text, text);
        palette.setColor(QPalette::Base, ground);
        const QColor caption = secondaryText(palette);
        SCOPED_TRACE(text);
        EXPECT_GE(contrast(caption, ground), kReadable);
        EXPECT_EQ(contrast(caption, ground) < contrast(text, ground), isFainter);
        EXPECT_EQ(groundOf(palette), QColor(ground));
    }
}

} // namespace
} // namespace vexmoor
