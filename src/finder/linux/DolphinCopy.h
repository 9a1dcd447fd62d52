#pragma once

#include <QDBusConnection>

#include <xcb/xcb.h>

#include <sys/types.h>

namespace vexmoor {

/// Makes the Dolphin process copy that window's selection to the clipboard without a key press.
/// Returns false if it does not answer. Blocks for less than a second; thread-safe.
bool copyInDolphin(const QDBusConnection& session, pid_t process, xcb_window_t window);

} // namespace vexmoor
