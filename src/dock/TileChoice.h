#pragma once

#include "Tile.h"
#include "XwaylandTile.h"

#include "base/UserDefaults.h"

#include <memory>

namespace vexmoor {

/// An environment variable. "xwayland" shows the tile through XWayland even if the compositor
/// supports layers.
inline constexpr const char* kTileVariable = "VEXMOOR_TILE";

/// True if there is a Wayland compositor. Can be called before the application exists.
bool compositorAnswers();

/// How the session shows the tile, and why.
struct TileChoice {
    enum class Reason {
        compositorHasLayers,   ///< as a surface of the compositor's layers
        isX11,                 ///< as a window, like all of the following
        isWanted,              ///< the environment variable asks for it
        compositorLacksLayers, ///< or the compositor does not answer
    };

    Reason reason = Reason::isX11;
    DisplayFacts facts;

    /// Queries the session. Requires the application. Main thread.
    static TileChoice forSession();

    [[nodiscard]] bool isWindow() const { return reason != Reason::compositorHasLayers; }
};

/// Creates the kind of tile that this session supports. Requires the application; the defaults must
/// outlive the tile. Main thread.
std::unique_ptr<Tile> makeTile(UserDefaults& defaults);

} // namespace vexmoor
