#pragma once

#include <QFontMetricsF>
#include <QPainter>

namespace vexmoor {

// Text in which all digits have the width of the widest one, so that a changing number does not
// shift.

double tabularWidth(const QFont& font, const QString& text);

/// Paints the text from left to right with the painter's pen, starting at the baseline point.
void drawTabular(QPainter& painter, QPointF baseline, const QFont& font, const QString& text);

} // namespace vexmoor
