#pragma once

#include "SeededRNG.h"

#include <cstddef>
#include <cstdint>

namespace vexmoor {

/// One item's way into the pot: it appears at a side, swings round the pot, plunges into the acid,
/// sinks, and its flame flares up and dies. Times are seconds since its own start; places are
/// columns and rows of the frame.
class SwarmItem {
  public:
    static constexpr double kInterval = 0.3; ///< between one item's start and the next's
    static constexpr double kAppear = 0.35;
    static constexpr double kSwing = 0.35;
    static constexpr double kPlunge = 0.65;
    static constexpr double kEarly = 0.4; ///< the flame starts this much before the plunge's end
    static constexpr double kFlare = 0.2;
    static constexpr double kFade = 0.4;
    /// When the item meets the acid.
    static constexpr double kSplash = kAppear + kSwing + kPlunge - kEarly;
    static constexpr double kSunk = kAppear + kSwing + kPlunge;
    static constexpr double kEnd = kSplash + kFlare + kFade;

    struct Pose {
        double x; ///< centre
        double y;
        double depth;   ///< columns in front of the pot's centre (behind: negative)
        double angle;   ///< radians
        double size;    ///< side, in rows
        double opacity; ///< 0 to 1
        bool behindPot; ///< the pot hides it
    };

    /// The item of that number in the swarm of that seed.
    SwarmItem(std::uint64_t seed, std::size_t number);

    /// From 0 to kSunk.
    [[nodiscard]] Pose pose(double time) const;
    /// The height of its flame, 0 before the splash and at the end.
    [[nodiscard]] double flameHeight(double time) const;
    /// Where it meets the acid.
    [[nodiscard]] int poolColumn() const { return m_poolColumn; }
    [[nodiscard]] double flamePhase() const { return m_phase; }

  private:
    double m_start;    ///< the angle it comes from, seen from above
    double m_turns;    ///< how far it swings round, in radians, signed
    double m_distance; ///< columns from the pot where it appears
    double m_rise;     ///< the height of its arc
    double m_spin;     ///< how far it tumbles, in radians
    double m_flame;    ///< its flame's full height
    double m_phase;
    int m_poolColumn;
};

} // namespace vexmoor
