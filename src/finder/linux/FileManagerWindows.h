#pragma once

#include "XConnection.h"

#include "integration/FileManagers.h"

#include <sys/types.h>

#include <optional>

namespace vexmoor::x11 {

/// A window of a file manager.
struct FileManagerWindow {
    xcb_window_t id = XCB_WINDOW_NONE;
    const FileManager* manager = nullptr;
    std::optional<pid_t> process; ///< nullopt if the window does not say

    bool operator==(const FileManagerWindow&) const = default;
};

/// The active window, if it is a file manager's (EWMH, _NET_ACTIVE_WINDOW).
std::optional<FileManagerWindow> activeFileManager(XConnection& connection);

/// Makes the uppermost window of a file manager the active one, unless it is, and waits for that.
/// nullopt if there is no such window, or the window manager does not activate it.
std::optional<FileManagerWindow> activateFileManager(XConnection& connection);

} // namespace vexmoor::x11
