#pragma once

#include <QRect>
#include <QString>
#include <QWindow>

#include <optional>
#include <vector>

// Window system functions that Qt does not provide. Coordinates are physical pixels of the whole
// desktop. On other platforms (offscreen) setters do nothing and getters return empty values.

namespace vexmoor::native {

/// True if a display can be opened. Can be called before the application exists.
bool displayAnswers();

/// True if the X server is XWayland.
bool isXwayland();

/// Returns the window manager's name, or an empty string.
QString windowManagerName();

/// Marks a hidden window as a dock: above other windows, on all workspaces, not in window lists.
/// Must be called before each show.
void makeDock(WId window);

/// Sets a window's geometry. If the window manager manages the window, the change is asynchronous.
void setGeometry(WId window, const QRect& geometry);
/// Returns the window's actual geometry.
std::optional<QRect> geometry(WId window);

/// Clips the window to these rectangles. The shape cannot be removed again.
void setShape(WId window, const std::optional<std::vector<QRect>>& shape);

/// Makes the whole window transparent for pointer input.
void ignoreInput(WId window);

void raise(WId window);

/// True if the active window covers a whole screen and overlaps the rectangle. Other windows must
/// then stay below it there.
bool isFullscreenAt(const QRect& geometry);

} // namespace vexmoor::native
