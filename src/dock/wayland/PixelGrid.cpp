#include "PixelGrid.h"

#include <cmath>
#include <numeric>

namespace vexmoor::wayland {
namespace {

constexpr int kParts = 120;
constexpr int kLongestStep =
    30; ///< in logical pixels: a coarser grid would displace the tile visibly

int stepOf(double scale) {
    const int step = kParts / std::gcd(static_cast<int>(std::lround(scale * kParts)), kParts);
    return step <= kLongestStep ? step : 1;
}

} // namespace

PixelGrid::PixelGrid(double scale) : m_scale(scale), m_step(stepOf(scale)) {}

int PixelGrid::lineBefore(int logical) const {
    return static_cast<int>(std::floor(static_cast<double>(logical) / m_step)) * m_step;
}

QRect PixelGrid::around(const QRect& physical) const {
    const double cell = m_step * m_scale; // physical pixels per step
    const double slack = 1e-6;
    const auto before = [&](int position) {
        return static_cast<int>(std::floor(position / cell + slack)) * m_step;
    };
    const auto after = [&](int position) {
        return static_cast<int>(std::ceil(position / cell - slack)) * m_step;
    };
    const QPoint corner(before(physical.left()), before(physical.top()));
    const QPoint end(after(physical.left() + physical.width()),
                     after(physical.top() + physical.height()));
    return {corner, QSize(end.x() - corner.x(), end.y() - corner.y())};
}

QRect PixelGrid::physical(const QRect& logical) const {
    const auto scaled = [this](int position) {
        return static_cast<int>(std::lround(position * m_scale));
    };
    return {scaled(logical.x()), scaled(logical.y()), scaled(logical.width()),
            scaled(logical.height())};
}

} // namespace vexmoor::wayland
