#include "TextStyle.h"

#include "Accent.h"

#include <QFontInfo>

#include <algorithm>
#include <cmath>

namespace vexmoor {

QFont textFont(const QFont& platform, double size, QFont::Weight weight) {
    constexpr double kPlainSize = 13;
    QFont font = platform;
    const double pixels = QFontInfo(platform).pixelSize() * size / kPlainSize;
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    font.setWeight(weight);
    return font;
}

QColor groundOf(const QPalette& palette) {
    return palette.color(QPalette::Base);
}

QColor secondaryText(const QPalette& palette) {
    const QColor text = palette.color(QPalette::Text);
    const QColor ground = groundOf(palette);
    return Shades{text, mixed(text, ground, 0.4), text}.readableOn(ground);
}

QColor hairline(const QPalette& palette) {
    return mixed(groundOf(palette), palette.color(QPalette::Text), 0.12);
}

} // namespace vexmoor
