#pragma once

#include "skins/Skin.h"

#include <QFont>
#include <QPainter>
#include <QPalette>

// Small pictures of the system's windows that the user is about to meet, drawn, not photographed.

namespace vexmoor::Mock {

/// What the pictures take from the window that they are painted in.
struct Style {
    QPalette palette;
    QFont font; ///< the platform's
    const Skin& skin;
};

/// The size of the pictures in points, for a font of that size.
QSizeF sizeFor(const QFont& font);

/// A list of programs under the heading of a section of the system's settings. Vexmoor's row is
/// lit.
void settingsRow(QPainter& painter, const QRectF& area, const QString& section, const Style& style);

/// The question for a permission, with its "Allow" button.
void dialog(QPainter& painter, const QRectF& area, const QString& detail, const Style& style);

} // namespace vexmoor::Mock
