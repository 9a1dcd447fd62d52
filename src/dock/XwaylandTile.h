#pragma once

#include "TileWindow.h"

#include <QString>

namespace vexmoor {

/// What decides how the tile's window is shown by an X server. Values.
struct DisplayFacts {
    bool isXwayland = false; ///< the server's windows are shown by a Wayland compositor
    QString windowManager;   ///< its name as it tells the X server; empty if there is none
    QString currentDesktop;  ///< XDG_CURRENT_DESKTOP: names with colons between

    /// Those of this session. Needs the application; main thread.
    static DisplayFacts ofSession();
};

/// How the tile's window is to be shown. A window manager always manages it on X11. Under XWayland
/// the compositor's own name decides, then the desktop's; an unknown compositor does not manage it:
/// so it keeps its place and never takes the focus.
TileHandling tileHandling(const DisplayFacts& facts);

} // namespace vexmoor
