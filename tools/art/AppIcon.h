#pragma once

#include "art/PixelCanvas.h"

#include <QByteArray>

namespace vexmoor::arttool {

/// Returns the program's icon with that side in pixels (16 to 1024), built from whole squares of
/// one of three drawings and centred.
PixelCanvas appIcon(int side);

/// Returns the icon as a scalable picture.
QByteArray appIconSvg();

} // namespace vexmoor::arttool
