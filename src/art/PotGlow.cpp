#include "PotGlow.h"

#include "SeededRNG.h"

#include <algorithm>
#include <cmath>

namespace vexmoor {
namespace {

constexpr int kPoolTop = 26;
constexpr int kPoolBottom = 30;
constexpr int kRimTop = 20;
constexpr int kRimBottom = 32;

bool isAcid(Pixel pixel, const Skin& skin) {
    return pixel == skin.acid || pixel == skin.acidDark || pixel == skin.acidLight;
}

std::uint8_t alphaOf(double share) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(share, 0.0, 1.0) * 255));
}

Pixel churned(Pixel pixel, int x, int y, int step, const Skin& skin) {
    const double noise = SeededRNG::noise(static_cast<std::uint64_t>(step), (x + y) / 3, y);
    return noise > 0.9 ? skin.acidLight : noise > 0.68 ? skin.spark : pixel;
}

/// Returns the light's strength in two discrete steps of distance from the pool.
double rimLight(int x, int y) {
    const double distance = std::hypot((x - 16.5) / 1.6, y - 28.0);
    return distance < 6 ? 0.5 : distance < 9.5 ? 0.28 : 0.0;
}

} // namespace

void PotGlow::paint(PixelCanvas& pot, const Skin& skin) const {
    if (strength <= 0)
        return;
    for (int y = kRimTop; y < pot.height(); ++y) {
        for (int x = 0; x < pot.width(); ++x) {
            const Pixel pixel = pot.at(x, y);
            if (pixel.a < 255 || pixel == skin.outline)
                continue;
            if (y >= kPoolTop && y <= kPoolBottom && isAcid(pixel, skin))
                pot.set(x, y, churned(pixel, x, y, step, skin));
            else if (y > kRimBottom && isAcid(pixel, skin))
                pot.blend(x, y, skin.acidLight.withAlpha(alphaOf(strength * 0.6)));
            else if (y <= kRimBottom)
                pot.blend(x, y, skin.acid.withAlpha(alphaOf(strength * rimLight(x, y))));
        }
    }
}

} // namespace vexmoor
