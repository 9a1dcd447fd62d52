#pragma once

#include "TileWindow.h"

#include <QString>

namespace vexmoor {

/// The properties of the display that decide how the tile's window is shown.
struct DisplayFacts {
    bool isXwayland = false; ///< the X server is XWayland
    QString windowManager;   ///< name reported to the X server; empty if there is none
    QString currentDesktop;  ///< XDG_CURRENT_DESKTOP: colon-separated names

    /// Returns the properties of this session. Requires the application; main thread.
    static DisplayFacts ofSession();
};

/// Returns how to show the tile's window. On X11 the window manager manages it. Under XWayland the
/// compositor's name decides, then the desktop's; an unknown compositor must not manage it, so that
/// it keeps its position and never takes the focus.
TileHandling tileHandling(const DisplayFacts& facts);

} // namespace vexmoor
