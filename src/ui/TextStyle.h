#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

namespace vexmoor {

/// The platform's font at a size that is given for a platform whose plain text has 13 points, so
/// that it grows with what the user has chosen.
QFont textFont(const QFont& platform, double size, QFont::Weight weight = QFont::Normal);

/// What windows are written on.
QColor groundOf(const QPalette& palette);

/// For captions: fainter than the text, readable on the ground.
QColor secondaryText(const QPalette& palette);

/// For lines between parts.
QColor hairline(const QPalette& palette);

} // namespace vexmoor
