#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

namespace vexmoor {

/// Returns the platform's font scaled to `size`, which is relative to a default text size of 13
/// points, so that it respects the user's font size.
QFont textFont(const QFont& platform, double size, QFont::Weight weight = QFont::Normal);

/// Returns the background colour of windows.
QColor groundOf(const QPalette& palette);

/// Returns the colour of captions: fainter than normal text but readable.
QColor secondaryText(const QPalette& palette);

/// Returns the colour of separating lines.
QColor hairline(const QPalette& palette);

} // namespace vexmoor
