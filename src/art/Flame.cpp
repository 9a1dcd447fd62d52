#include "Flame.h"

#include "CauldronArt.h"

#include <algorithm>
#include <cmath>

namespace vexmoor {
namespace {

constexpr double kWidest = 0.72; ///< fraction of the height, from the tip
constexpr double kFoot = 0.9;    ///< fraction of the height at which the core ends
constexpr double kCoreTop = 0.22;
constexpr double kEdge = 0.8; ///< fraction of the half-width
constexpr int kFlooded = 30;  ///< first row in which flames are not drawn

double halfWidthAt(double t, double most) {
    return t < kWidest ? most * std::sqrt(t / kWidest)
                       : most * std::sqrt((1 - t) / (1 - kWidest)) + 1;
}

/// Returns the colour for nested flames (cool, hot, core), each of which begins further down, and a
/// plain foot.
Pixel colourAt(double t, double fromCentre, const Skin& skin) {
    if (t >= kFoot)
        return fromCentre >= kEdge ? skin.spark : skin.acid;
    const double inside = std::max(0.0, t - kCoreTop);
    if (t <= kCoreTop || fromCentre >= kEdge * std::min(1.0, std::sqrt(inside / 0.2)))
        return skin.acid;
    return fromCentre < 0.6 * std::sqrt(std::max(0.0, inside - 0.12)) ? skin.acidLight : skin.spark;
}

} // namespace

int Flame::columnAt(double rise) const {
    const double t = std::clamp(rise / std::max(height, 1.0), 0.0, 1.0);
    return centre + static_cast<int>(std::lround(bend * t * t * std::sin(phase - 4 * t)));
}

void Flame::paint(PixelCanvas& canvas, const Skin& skin, SeededRNG& rng) const {
    const int rows = static_cast<int>(std::lround(height));
    if (rows < 1)
        return;
    const double most = std::min(height * 0.46, halfWidth);
    for (int i = 0; i <= rows; ++i) {
        const double t = static_cast<double>(i) / rows;
        const double width = halfWidthAt(t, most);
        const int reach = static_cast<int>(std::lround(width + (rng.uniform() - 0.5) * 1.6));
        const int y = static_cast<int>(std::lround(base - height + i));
        if (y >= kFlooded)
            continue;
        const int middle = columnAt(rows - i);
        for (int dx = -reach; dx <= reach; ++dx)
            canvas.blend(middle + dx, y, colourAt(t, std::abs(dx) / std::max(width, 1.0), skin));
    }
}

void CauldronArt::drawFlame(PixelCanvas& canvas, double height, const Skin& skin, SeededRNG& rng) {
    Flame{.base = kFlameBase, .height = height}.paint(canvas, skin, rng);
}

} // namespace vexmoor
