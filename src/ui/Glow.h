#pragma once

#include <QColor>
#include <QPainter>

namespace vexmoor {

/// Paints the light that a pot of that side stands in: strongest in the middle, nothing left where
/// the pot is as far away again.
void paintGlow(QPainter& painter, const QRectF& pot, const QColor& colour, const QColor& ground);

} // namespace vexmoor
