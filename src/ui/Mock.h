#pragma once

#include "skins/Skin.h"

#include <QFont>
#include <QPainter>
#include <QPalette>

// These functions draw small pictures of the system windows that the walkthrough mentions.

namespace vexmoor::Mock {

/// The colours and font of the window that contains the picture.
struct Style {
    QPalette palette;
    QFont font; ///< the platform's font
    const Skin& skin;
};

/// Returns the pictures' size in points for a font.
QSizeF sizeFor(const QFont& font);

/// Draws a list of programs under a heading of the system settings, with Vexmoor's row highlighted.
void settingsRow(QPainter& painter, const QRectF& area, const QString& section, const Style& style);

/// Draws a permission dialog with its "Allow" button.
void dialog(QPainter& painter, const QRectF& area, const QString& detail, const Style& style);

} // namespace vexmoor::Mock
