#pragma once

#include <QDBusConnection>

#include <xcb/xcb.h>

#include <sys/types.h>

namespace vexmoor {

/// Has the Dolphin of that process copy the selection of that window to the clipboard, without any
/// key. False if it does not answer. Blocks for less than a second; any thread.
bool copyInDolphin(const QDBusConnection& session, pid_t process, xcb_window_t window);

} // namespace vexmoor
