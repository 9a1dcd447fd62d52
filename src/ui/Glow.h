#pragma once

#include <QColor>
#include <QPainter>

namespace vexmoor {

/// Paints a radial glow behind a pot: strongest in the centre, fading out at 0.85 pot widths from
/// it.
void paintGlow(QPainter& painter, const QRectF& pot, const QColor& colour, const QColor& ground);

} // namespace vexmoor
