#pragma once

#include <QRect>
#include <QString>
#include <QWindow>

#include <optional>
#include <vector>

// What the windows ask of the window system beyond what Qt offers. Coordinates are whole physical
// pixels of the whole desktop. Where Qt runs on another window system (offscreen), the orders do
// nothing and the questions have no answer.

namespace vexmoor::native {

/// Whether there is a display that takes windows; asked before there is an application.
bool displayAnswers();

/// Whether the X server shows its windows through a Wayland compositor.
bool isXwayland();

/// The name that the window manager gives itself; empty if there is none or it has no name.
QString windowManagerName();

/// Marks a window that is not shown yet as part of the desktop's furniture: a dock, above others,
/// on all workspaces, in no list. To be repeated before each showing.
void makeDock(WId window);

/// Places a window. One that the window manager manages is placed by it, a little later.
void setGeometry(WId window, const QRect& geometry);
/// Where the window is.
std::optional<QRect> geometry(WId window);

/// Cuts the window down to these of its pixels; nothing makes it whole again.
void setShape(WId window, const std::optional<std::vector<QRect>>& shape);

/// Lets the pointer through the whole window.
void ignoreInput(WId window);

void raise(WId window);

/// Whether the active window covers a whole screen and overlaps the rectangle, so that no other
/// window is to lie above it there.
bool isFullscreenAt(const QRect& geometry);

} // namespace vexmoor::native
