#pragma once

#include <QIcon>
#include <QPixmap>

namespace vexmoor {

/// A still picture of the current skin's pot, with `cell` physical pixels per canvas pixel.
QPixmap potPicture(int cell);

/// The same picture as an icon of several sizes, used if the icon theme has none.
QIcon potIcon();

} // namespace vexmoor
