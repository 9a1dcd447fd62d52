#pragma once

#include <QColor>
#include <QIcon>
#include <QPainter>

namespace vexmoor {

/// Our own glyphs, which do not depend on the icon theme.
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

/// Paints the symbol in one colour, centred in the square. Line widths scale with the square.
void paintSymbol(QPainter& painter, const QRectF& square, Symbol symbol, const QColor& colour);

/// Returns the symbol as an icon, rendered for each size and pixel ratio.
QIcon symbolIcon(Symbol symbol, const QColor& colour);

} // namespace vexmoor
