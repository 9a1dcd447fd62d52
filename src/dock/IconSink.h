#pragma once

#include "DeskRect.h"

#include "art/PixelCanvas.h"

// Outputs of the animation (ports). Both take pictures in canvas pixels and scale them by an
// integer, so that each canvas pixel is a sharp square at any screen density.

namespace vexmoor {

/// Shows the application's icon.
class IconSink {
  public:
    virtual ~IconSink() = default;
    virtual void setIcon(const PixelCanvas& icon) = 0;
};

/// The window above the tile in which flames rise.
class FlameWindow {
  public:
    virtual ~FlameWindow() = default;
    /// Shows the picture scaled to fill the rectangle.
    virtual void showFlame(const PixelCanvas& flame, const DeskRect& frame) = 0;
    virtual void orderOut() = 0;
};

} // namespace vexmoor
