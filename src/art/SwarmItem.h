#pragma once

#include "SeededRNG.h"

#include <cstddef>
#include <cstdint>

namespace vexmoor {

/// The path of one item into the pot: it appears at a side, circles the pot, plunges into the acid
/// and sinks; then its flame flares up and fades. Times are seconds since the item's start;
/// positions are columns and rows of the frame.
class SwarmItem {
  public:
    static constexpr double kInterval = 0.3; ///< time between the starts of two items
    static constexpr double kAppear = 0.35;
    static constexpr double kSwing = 0.35;
    static constexpr double kPlunge = 0.65;
    static constexpr double kEarly = 0.4; ///< time from the flame's start to the plunge's end
    static constexpr double kFlare = 0.2;
    static constexpr double kFade = 0.4;
    /// The time at which the item reaches the acid.
    static constexpr double kSplash = kAppear + kSwing + kPlunge - kEarly;
    static constexpr double kSunk = kAppear + kSwing + kPlunge;
    static constexpr double kEnd = kSplash + kFlare + kFade;

    struct Pose {
        double x; ///< centre
        double y;
        double depth;   ///< columns in front of the pot's centre; negative behind it
        double angle;   ///< radians
        double size;    ///< side, in rows
        double opacity; ///< 0 to 1
        bool behindPot; ///< the pot hides it
    };

    /// Creates the swarm's item with that number. All its values derive from the seed.
    SwarmItem(std::uint64_t seed, std::size_t number);

    /// Returns the item's pose; `time` is 0 to kSunk.
    [[nodiscard]] Pose pose(double time) const;
    /// Returns the flame's height: 0 before the splash and at the end.
    [[nodiscard]] double flameHeight(double time) const;
    /// Returns the column in which the item reaches the acid.
    [[nodiscard]] int poolColumn() const { return m_poolColumn; }
    [[nodiscard]] double flamePhase() const { return m_phase; }

  private:
    double m_start;    ///< start angle, seen from above
    double m_turns;    ///< signed angle of the circling, in radians
    double m_distance; ///< start distance from the pot, in columns
    double m_rise;     ///< height of its arc
    double m_spin;     ///< total rotation, in radians
    double m_flame;    ///< full height of its flame
    double m_phase;
    int m_poolColumn;
};

} // namespace vexmoor
