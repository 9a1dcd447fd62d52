#pragma once

#include "DeskRect.h"

#include "art/PixelCanvas.h"

// Where the animation is shown (ports). Both get pictures in canvas pixels and enlarge them by a
// whole number, so that each canvas pixel stays a crisp square whatever the screen's density.

namespace vexmoor {

/// Shows the application's icon.
class IconSink {
  public:
    virtual ~IconSink() = default;
    virtual void setIcon(const PixelCanvas& icon) = 0;
};

/// The window above the tile that the flames rise in.
class FlameWindow {
  public:
    virtual ~FlameWindow() = default;
    /// Shows the picture over that rectangle, filling both of its axes.
    virtual void showFlame(const PixelCanvas& flame, const DeskRect& frame) = 0;
    virtual void orderOut() = 0;
};

} // namespace vexmoor
