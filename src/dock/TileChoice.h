#pragma once

#include "Tile.h"
#include "XwaylandTile.h"

#include "base/UserDefaults.h"

#include <memory>

namespace vexmoor {

/// An environment variable: "xwayland" has the tile shown through XWayland where the compositor
/// could show it itself.
inline constexpr const char* kTileVariable = "VEXMOOR_TILE";

/// Whether there is a Wayland compositor; asked before there is an application.
bool compositorAnswers();

/// In which way a session shows the tile, and why. Values.
struct TileChoice {
    enum class Reason {
        compositorHasLayers,   ///< a surface of the compositor's own
        isX11,                 ///< a window, as are all that follow
        isWanted,              ///< by the variable
        compositorLacksLayers, ///< or the compositor does not answer
    };

    Reason reason = Reason::isX11;
    DisplayFacts facts;

    /// For this session, which is asked again. Needs the application; main thread.
    static TileChoice forSession();

    [[nodiscard]] bool isWindow() const { return reason != Reason::compositorHasLayers; }
};

/// The tile in the way in which this session can show it. Needs the application; the defaults must
/// outlive it. Main thread.
std::unique_ptr<Tile> makeTile(UserDefaults& defaults);

} // namespace vexmoor
