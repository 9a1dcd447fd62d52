#include "CauldronArt.h"

#include <cmath>
#include <numbers>

namespace vexmoor {
namespace {

struct Bubble {
    int column;
    int period; ///< in ticks
    int offset;
};

constexpr Bubble kBubbles[] = {{9, 23, 0},   {13, 31, 9},  {16, 19, 4},
                               {21, 29, 15}, {11, 37, 20}, {19, 41, 2}};

int wrapped(int value, int period) {
    return (value % period + period) % period;
}

/// Draws a bubble that swells, bursts into a ring and a spark, and throws a drop over the rim.
void drawBubble(PixelCanvas& pot, int column, double phase, const Skin& skin) {
    if (phase < 0.45)
        return;
    if (phase < 0.70) {
        pot.blend(column + 1, 28, skin.acidLight);
        pot.blend(column + 1, 27, skin.acid);
    } else if (phase < 0.85) {
        pot.blend(column + 1, 27, skin.acidLight);
        pot.blend(column + 2, 27, skin.acidLight);
        pot.blend(column + 1, 28, skin.acid);
    } else if (phase < 0.93) {
        pot.blend(column, 26, skin.acid);
        pot.blend(column + 2, 26, skin.acid);
        pot.blend(column + 1, 25, skin.spark);
    } else {
        pot.blend(column + 1, 22, skin.acidDark);
    }
}

/// Draws a mote of light that occasionally rises from the acid, swaying, and fades.
void drawGlint(PixelCanvas& pot, int tick, const Skin& skin) {
    const int age = wrapped(tick, 90);
    if (age >= 12)
        return;
    pot.blend(tick % 4 == 0 ? 18 : 17, 23 - age / 3, age < 6 ? skin.acid : skin.acidDark);
}

} // namespace

double CauldronArt::hoverLift(double tick, const Skin& skin) {
    return skin.body.hoverRows >= 1 ? std::sin(2 * std::numbers::pi * tick / 40) * 1.5 : 0;
}

PixelCanvas CauldronArt::idle(int tick, bool still, double subtick, const Skin& skin) {
    PixelCanvas scene(kWidth, kHeight);
    PixelCanvas pot(kWidth, kHeight);
    drawPot(pot, &scene, skin, 0);
    if (!still) {
        for (const auto& [column, period, offset] : kBubbles)
            drawBubble(pot, column, wrapped(tick + offset, period) / static_cast<double>(period),
                       skin);
        drawGlint(pot, tick, skin);
    }
    if (skin.body.hoverRows < 1) {
        scene.merge(pot, 0, 0);
        return scene;
    }
    scene.addOverlay({.image = pot.bitmapRep(),
                      .w = kWidth,
                      .h = kHeight,
                      .yOffset = still ? 0 : -hoverLift(tick + subtick, skin),
                      .crisp = true});
    return scene;
}

} // namespace vexmoor
