#pragma once

#include <QByteArray>
#include <QWindow>

// Startup notification (freedesktop.org's Startup Notification Protocol). A launcher shows a busy
// pointer until the start with the given id, which also contains the user's time stamp, has ended.
// Does nothing on platforms other than X11. Main thread.

namespace vexmoor::native {

/// Associates the window with the start, so that the window manager gives it the focus. Call before
/// the window is shown, or again if it is already visible.
void answerStartup(WId window, const QByteArray& id);

/// Reports to the launcher that the start is complete.
void endStartup(const QByteArray& id);

} // namespace vexmoor::native
