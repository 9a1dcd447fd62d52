#include "Accent.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vexmoor {
namespace {

QColor colourOf(Pixel pixel) {
    return {pixel.r, pixel.g, pixel.b};
}

double linear(int channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

} // namespace

double relativeLuminance(const QColor& colour) {
    return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) +
           0.0722 * linear(colour.blue());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({relativeLuminance(one), relativeLuminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

bool isDark(const QColor& ground) {
    return contrast(ground, Qt::white) > contrast(ground, Qt::black);
}

QColor mixed(const QColor& from, const QColor& to, double share) {
    const auto channel = [share](int start, int end) {
        return static_cast<int>(std::lround(start + (end - start) * share));
    };
    return {channel(from.red(), to.red()), channel(from.green(), to.green()),
            channel(from.blue(), to.blue())};
}

QColor Shades::readableOn(const QColor& ground) const {
    const bool upwards = isDark(ground);
    const std::array<QColor, 3> way{middle, upwards ? light : dark,
                                    upwards ? QColor(Qt::white) : QColor(Qt::black)};
    constexpr int kSteps = 32;
    for (std::size_t leg = 0; leg + 1 < way.size(); ++leg) {
        for (int step = 0; step < kSteps; ++step) {
            const QColor shade = mixed(way[leg], way[leg + 1], static_cast<double>(step) / kSteps);
            if (contrast(shade, ground) >= kReadable)
                return shade;
        }
    }
    return way.back();
}

Accent Accent::of(const Skin& skin, const QColor& ground) {
    const Shades acid{colourOf(skin.acidDark), colourOf(skin.acid), colourOf(skin.acidLight)};
    // Colours beyond the ground, as seen from the accent, contrast with the accent even more.
    const QColor away = isDark(ground) ? Qt::black : Qt::white;
    const QColor further = isDark(ground) ? Qt::white : Qt::black;
    const QColor colour = acid.readableOn(ground);
    return {colour, mixed(colour, further, 0.12), away, acid.middle};
}

} // namespace vexmoor
