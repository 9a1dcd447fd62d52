#include "SwarmItem.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vexmoor {
namespace {

constexpr double kPoolRow = 28;
constexpr double kTilt = 0.3;  ///< height to width ratio of the pool's ellipse
constexpr double kOpening = 9; ///< the pool's half width

double eased(double value) {
    return value * value * (3 - 2 * value);
}

} // namespace

SwarmItem::SwarmItem(std::uint64_t seed, std::size_t number) {
    const std::uint64_t coin = SeededRNG::mixed(seed).next();
    const double direction = (coin & 1) != 0 ? 1 : -1;
    const bool fromLeft = ((coin >> 1 ^ number) & 1) != 0;
    SeededRNG rng = SeededRNG::mixed(seed + 1 + number);
    m_start = (fromLeft ? std::numbers::pi : 0) + (rng.uniform() - 0.5) * 1.0;
    m_turns = direction * (3.6 + rng.uniform() * 1.4);
    m_distance = 23 + rng.uniform() * 5;
    m_rise = 11 + rng.uniform() * 4;
    m_spin = direction * (rng.uniform() < 0.5 ? -1 : 1) * (2.5 + rng.uniform() * 3);
    m_flame = 13 + rng.uniform() * 6;
    m_phase = rng.uniform() * 2 * std::numbers::pi;
    m_poolColumn = 17 + static_cast<int>(std::lround((rng.uniform() - 0.5) * 9));
}

SwarmItem::Pose SwarmItem::pose(double time) const {
    const double flight = std::clamp(time / kSplash, 0.0, 1.0);
    const double sinking = std::clamp((time - kSplash) / (kSunk - kSplash), 0.0, 1.0);
    const double radius = m_distance * std::pow(1 - flight, 0.8);
    const double bearing = m_start + m_turns * flight * (0.6 + 0.4 * flight);
    const double depth = radius * std::sin(bearing);
    const double arc = std::sin(std::numbers::pi * std::pow(flight, 2.6)) * m_rise;
    Pose pose{};
    pose.x = 17 + (m_poolColumn - 17) * flight + radius * std::cos(bearing);
    pose.y = kPoolRow + 7 * (1 - flight) + depth * kTilt - arc + sinking * 9;
    pose.depth = depth;
    pose.angle = m_spin * flight * flight + 0.35 * sinking;
    pose.size = (10 + depth * 0.09) * (0.5 + 0.5 * eased(std::min(time / kAppear, 1.0)));
    pose.opacity = eased(std::clamp(time / (0.6 * kAppear), 0.0, 1.0));
    pose.behindPot = depth < 0 && radius > kOpening;
    return pose;
}

double SwarmItem::flameHeight(double time) const {
    const double age = time - kSplash;
    if (age <= 0 || age >= kFlare + kFade)
        return 0;
    if (age < kFlare) {
        const double left = 1 - age / kFlare;
        return m_flame * (1 - left * left * left);
    }
    const double sunk = (age - kFlare) / kFade;
    return m_flame * (1 - sunk * sunk);
}

} // namespace vexmoor
