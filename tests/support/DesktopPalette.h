#pragma once

#include <QPalette>

// Header only, since not all tests link Qt.

namespace vexmoor::test {

/// Returns the system palette of a light or dark desktop.
inline QPalette desktopPalette(bool dark) {
    const QColor ground = dark ? QColor(0x1e, 0x1d, 0x22) : QColor(0xfb, 0xfb, 0xfc);
    const QColor text = dark ? QColor(0xf2, 0xf2, 0xf4) : QColor(0x1d, 0x1d, 0x1f);
    QPalette palette(dark ? QColor(0x2a, 0x29, 0x2f) : QColor(0xef, 0xef, 0xf0));
    palette.setColor(QPalette::Base, ground);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, text);
    return palette;
}

} // namespace vexmoor::test
