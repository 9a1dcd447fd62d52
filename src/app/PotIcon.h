#pragma once

#include <QIcon>
#include <QPixmap>

namespace vexmoor {

/// The pot of the skin in use, still, `cell` physical pixels a canvas pixel.
QPixmap potPicture(int cell);

/// The same as an icon of several sizes, for where the theme has none.
QIcon potIcon();

} // namespace vexmoor
