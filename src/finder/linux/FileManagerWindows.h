#pragma once

#include "XConnection.h"

#include "integration/FileManagers.h"

#include <sys/types.h>

#include <optional>

namespace vexmoor::x11 {

/// A file manager's window.
struct FileManagerWindow {
    xcb_window_t id = XCB_WINDOW_NONE;
    const FileManager* manager = nullptr;
    std::optional<pid_t> process; ///< nullopt if the window does not specify it

    bool operator==(const FileManagerWindow&) const = default;
};

/// Returns the active window if it belongs to a file manager (EWMH, _NET_ACTIVE_WINDOW).
std::optional<FileManagerWindow> activeFileManager(XConnection& connection);

/// Activates the topmost file manager window and waits until it is active. Returns nullopt if there
/// is none or the window manager does not activate it.
std::optional<FileManagerWindow> activateFileManager(XConnection& connection);

} // namespace vexmoor::x11
