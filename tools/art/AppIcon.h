#pragma once

#include "art/PixelCanvas.h"

#include <QByteArray>

namespace vexmoor::arttool {

/// The program's icon, a square of that many pixels (16 to 1024): always whole squares of one of
/// three drawings, in its middle where they do not fill it.
PixelCanvas appIcon(int side);

/// The same as a picture for any size.
QByteArray appIconSvg();

} // namespace vexmoor::arttool
