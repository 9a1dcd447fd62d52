#pragma once

#include "PhysicalGeometry.h"

#include <optional>
#include <string>
#include <string_view>

namespace vexmoor {

/// Where the tile stands: at an edge of a screen. A value that survives changes of the screens.
struct TilePlace {
    enum class Edge { bottom, left, right, top };

    Edge edge = Edge::bottom;
    double fraction = 0.96; ///< along the edge, 0 (left or top end) to 1
    std::string screen;     ///< its name; another screen's place where there is none of that name

    /// The place at the edge nearest to a tile that is at `tile`.
    static TilePlace nearest(const QRect& tile, const std::vector<PhysicalScreen>& screens);

    /// The screen it is on: the first of them where its own is not there.
    [[nodiscard]] const PhysicalScreen& screenOf(const std::vector<PhysicalScreen>& screens) const;
    /// A tile's rectangle at this place, wholly on the screen, in physical pixels.
    [[nodiscard]] QRect rect(const PhysicalScreen& on, int side) const;

    /// As stored: edge, fraction and screen's name, with spaces between.
    [[nodiscard]] std::string text() const;
    static std::optional<TilePlace> fromText(std::string_view text);

    bool operator==(const TilePlace&) const = default;
};

} // namespace vexmoor
