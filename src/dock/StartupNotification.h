#pragma once

#include <QByteArray>
#include <QWindow>

// The start that a launcher waits for with a busy pointer, named by an id that also tells when the
// user asked for it (Startup Notification Protocol of freedesktop.org). Where Qt runs on another
// window system than X11 nothing happens. Main thread.

namespace vexmoor::native {

/// Tells the window manager that the window is what the user waits for, so that it gets the focus.
/// To be called before the window is shown, or anew where it is already.
void answerStartup(WId window, const QByteArray& id);

/// Tells the launcher that the start is over.
void endStartup(const QByteArray& id);

} // namespace vexmoor::native
