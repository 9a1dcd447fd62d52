#pragma once

#include <QFontMetricsF>
#include <QPainter>

namespace vexmoor {

// Text whose digits are all as wide as the widest one, whatever the font, so that a figure that
// counts up does not shake.

double tabularWidth(const QFont& font, const QString& text);

/// Paints it from left to right in the painter's pen, its baseline beginning at the point.
void drawTabular(QPainter& painter, QPointF baseline, const QFont& font, const QString& text);

} // namespace vexmoor
