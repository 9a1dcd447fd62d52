#pragma once

#include "PhysicalGeometry.h"

#include <optional>
#include <string>
#include <string_view>

namespace vexmoor {

/// The tile's position at a screen's edge. Remains valid when the screens change.
struct TilePlace {
    enum class Edge { bottom, left, right, top };

    Edge edge = Edge::bottom;
    double fraction = 0.96; ///< position along the edge, from 0 (left or top end) to 1
    std::string screen;     ///< screen name; another screen is used if it is missing

    /// Returns the position at the edge nearest to the rectangle `tile`.
    static TilePlace nearest(const QRect& tile, const std::vector<PhysicalScreen>& screens);

    /// Returns the tile's screen, or the first one if its screen is missing.
    [[nodiscard]] const PhysicalScreen& screenOf(const std::vector<PhysicalScreen>& screens) const;
    /// Returns a tile's rectangle at this position in physical pixels, entirely on the screen.
    [[nodiscard]] QRect rect(const PhysicalScreen& on, int side) const;

    /// Returns the stored form: edge, fraction and screen name, separated by spaces.
    [[nodiscard]] std::string text() const;
    static std::optional<TilePlace> fromText(std::string_view text);

    bool operator==(const TilePlace&) const = default;
};

} // namespace vexmoor
