#pragma once

#include <QColor>
#include <QIcon>
#include <QPainter>

namespace vexmoor {

/// Small glyphs of our own, so that they look the same under every icon theme.
enum class Symbol {
    flame,       ///< dissolved
    trash,       ///< in the Bin
    putBack,     ///< an arrow that turns back
    gone,        ///< a bin with a cross: no longer in the Bin
    lock,        ///< not unlocked yet
    warning,     ///< something is missing
    checkCircle, ///< filled: granted
    circle,      ///< outlined: not granted yet
    crossCircle, ///< filled: refused
    folder,      ///< filled
    gear,
    app, ///< any application
    search,
};

/// Paints it with one colour, centred in the square. The lines grow with the square.
void paintSymbol(QPainter& painter, const QRectF& square, Symbol symbol, const QColor& colour);

/// The same as an icon that is drawn for each size and pixel ratio.
QIcon symbolIcon(Symbol symbol, const QColor& colour);

} // namespace vexmoor
