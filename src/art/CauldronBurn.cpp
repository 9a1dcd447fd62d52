#include "CauldronArt.h"
#include "Flame.h"
#include "OverlayRenderer.h"
#include "PotGlow.h"
#include "Runes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vexmoor {
namespace {

constexpr int kSplitRow = 23; ///< the rim's top row; from here down flames are in front of the pot
constexpr int kIconDetail = 2;

double fraction(double value) {
    return value - std::floor(value);
}

double ramp(double t, double from, double to) {
    return std::clamp((t - from) / (to - from), 0.0, 1.0);
}

/// The flame swings four times during a burn.
Flame flameOf(const CauldronArt::Burn& moment) {
    return {.base = CauldronArt::kFlameBase,
            .height = moment.height,
            .bend = std::min(moment.height / 8, 3.0),
            .phase = 2 * std::numbers::pi * 4 * moment.t};
}

/// The item's position in the flame.
struct IconPlace {
    int x;
    int y;
    int side;
};

IconPlace placeOf(double height) {
    const int side = std::max(static_cast<int>(height * 0.85), 3);
    return {17 - side / 2,
            static_cast<int>(CauldronArt::kFlameBase - height + height * 0.5) - side / 2, side};
}

/// The item's overlay, whose mask removes more and more pixels.
PixelCanvas::Overlay itemOverlay(const CauldronArt::Burn& moment, const IconPlace& place) {
    const double dissolved = moment.t < 0.6 ? 0 : std::min((moment.t - 0.6) * 4, 1.0);
    return {.image = squared(moment.icon),
            .x = place.x,
            .y = place.y,
            .w = place.side,
            .h = place.side,
            .detail = kIconDetail,
            .keep = [noise = moment.seed + 7, dissolved](int column, int row) {
                return SeededRNG::noise(noise, column, row) >= dissolved;
            }};
}

/// Returns the row up to which the flame covers the item. The line is wavy and rises during the
/// burn.
double fireLine(const CauldronArt::Burn& moment, double x) {
    const double phase = 2 * std::numbers::pi * 4 * moment.t;
    const double wave = std::sin(x * 1.1 + phase) + std::sin(x * 0.6 - phase * 1.5);
    const double climbed = 0.16 + 0.7 * ramp(moment.t, 0.22, 0.8) + 0.05 * wave;
    return CauldronArt::kFlameBase - moment.height * climbed;
}

/// The item's glow near the fire line, brightest at the line.
PixelCanvas::Overlay glowOverlay(PixelCanvas::Overlay item, const CauldronArt::Burn& moment) {
    const Pixel hot = moment.skin.acidLight;
    const double reach = item.h * 0.45;
    item.image =
        renderedOverlay({.image = item.image, .w = item.w, .h = item.h, .detail = item.detail});
    for (int row = 0; row < item.image.height(); ++row) {
        auto* line = reinterpret_cast<QRgb*>(item.image.scanLine(row));
        const double y = item.y + static_cast<double>(row) / item.detail;
        for (int column = 0; column < item.image.width(); ++column) {
            const double x = item.x + static_cast<double>(column) / item.detail;
            const double heat = 1 - (fireLine(moment, x) - y) / reach;
            const double alpha = qAlpha(line[column]) * std::clamp(heat * 0.85, 0.0, 0.85);
            line[column] = qPremultiply(qRgba(hot.r, hot.g, hot.b, static_cast<int>(alpha)));
        }
    }
    return item;
}

/// The part of the flame in front of the item, below the fire line.
PixelCanvas::Overlay lickOverlay(const PixelCanvas& flame, const CauldronArt::Burn& moment) {
    PixelCanvas front(flame.width(), flame.height());
    for (int x = 0; x < front.width(); ++x) {
        const int top = std::max(0, static_cast<int>(fireLine(moment, x)));
        for (int y = top; y < front.height(); ++y)
            front.set(x, y, flame.at(x, y));
    }
    return {.image = front.bitmapRep(), .w = front.width(), .h = front.height(), .crisp = true};
}

void drawItem(PixelCanvas& flame, const CauldronArt::Burn& moment) {
    const PixelCanvas::Overlay item = itemOverlay(moment, placeOf(moment.height));
    flame.addOverlay(item);
    flame.addOverlay(glowOverlay(item, moment));
    flame.addOverlay(lickOverlay(flame, moment));
}

/// Draws sparks that rise from the flame's tip, spread out and cool.
void drawEmbers(PixelCanvas& flame, const CauldronArt::Burn& moment) {
    const int count = static_cast<int>(moment.height / 3);
    const Flame shape = flameOf(moment);
    for (int i = 0; i < count; ++i) {
        const double age = moment.t * 3 + i * 0.37;
        const double phase = fraction(age);
        const double side = SeededRNG::noise(static_cast<std::uint64_t>(age), i, 0) - 0.5;
        const int x =
            shape.columnAt(moment.height) + static_cast<int>(std::lround(side * (4 + 10 * phase)));
        const int y =
            static_cast<int>(std::lround(CauldronArt::kFlameBase - moment.height - 6 * phase));
        flame.blend(x, y, phase < 0.5 ? moment.skin.spark : moment.skin.acid);
    }
}

/// Draws drops thrown up by the boiling acid.
void drawSpatter(PixelCanvas& flame, int count, const Skin& skin, SeededRNG& rng) {
    for (int i = 0; i < count; ++i) {
        const int x = 9 + static_cast<int>(rng.uniform() * 16);
        const double rise = rng.uniform();
        const int y = CauldronArt::kFlameBase - static_cast<int>(rise * rise * 8);
        flame.blend(x, y, rise < 0.6 ? skin.acid : skin.spark);
    }
}

/// Draws crumbs of the dissolving item that fall into the acid.
void drawCrumbs(PixelCanvas& flame, const CauldronArt::Burn& moment) {
    const double falling = ramp(moment.t, 0.6, 0.95);
    if (moment.icon.isNull() || falling == 0 || falling == 1)
        return;
    const IconPlace place = placeOf(std::max(moment.height, 8.0));
    for (int i = 0; i < 2 * place.side; ++i) {
        const double start = SeededRNG::noise(3, i, 1) * 0.7;
        const double age = (falling - start) / 0.3;
        if (age < 0 || age > 1)
            continue;
        const int x = place.x + static_cast<int>(SeededRNG::noise(3, i, 2) * place.side);
        const double from = place.y + SeededRNG::noise(3, i, 3) * place.side;
        const double to = CauldronArt::kFlameBase + 1;
        const int y = static_cast<int>(std::lround(from + (to - from) * age * age));
        flame.blend(x, y, age < 0.5 ? moment.skin.acidLight : moment.skin.spark);
    }
}

PixelCanvas paintedFlame(const CauldronArt::Burn& moment) {
    PixelCanvas flame(CauldronArt::kWidth, CauldronArt::kHeight);
    SeededRNG rng{moment.seed};
    if (moment.height >= 1)
        flameOf(moment).paint(flame, moment.skin, rng);
    if (!moment.icon.isNull())
        drawItem(flame, moment);
    drawEmbers(flame, moment);
    if (moment.simmer)
        drawSpatter(flame, 4, moment.skin, rng);
    drawCrumbs(flame, moment);
    return flame;
}

} // namespace

CauldronArt::Frame CauldronArt::burn(const Burn& moment) {
    const double stillUp = 1 - std::min(moment.t / 0.3, 1.0);
    const int sink = static_cast<int>(stillUp * stillUp * moment.lift);
    PixelCanvas flame = paintedFlame(moment);

    PixelCanvas scene(kWidth, kHeight);
    scene.merge(flame, 0, -sink);
    PixelCanvas pot(kWidth, kHeight);
    drawPot(pot, moment.skin.body.hoverRows > 0 ? &scene : nullptr, moment.skin, 0);
    if (moment.simmer)
        PotGlow{.strength = std::min(moment.height / 8, 1.0),
                .step = static_cast<int>(moment.t * 12)}
            .paint(pot, moment.skin);
    paintRunes(pot, moment.skin, ramp(moment.t, 0.08, 0.4) - ramp(moment.t, 0.8, 1.0));
    scene.merge(pot, 0, -sink);

    // The item is already on the scene; only the flame's pixels go in front of the pot.
    PixelCanvas front =
        moment.splitAtPool ? flame.crop(0, kSplitRow, kWidth, kHeight - kSplitRow) : flame;
    front.removeOverlays();
    scene.merge(front, 0, moment.splitAtPool ? kSplitRow : -sink);
    return {std::move(scene), std::move(flame)};
}

} // namespace vexmoor
