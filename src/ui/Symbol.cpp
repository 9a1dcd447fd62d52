#include "Symbol.h"

#include <QIconEngine>
#include <QPainterPath>

#include <cmath>
#include <numbers>

namespace vexmoor {
namespace {

// All glyphs use a square of 16 units.

constexpr double kUnits = 16;
constexpr double kLine = 1.4;

/// The parts of a glyph: areas, lines, and lines cut out of the areas.
struct Glyph {
    QPainterPath areas;
    QPainterPath lines;
    QPainterPath cuts; ///< lines removed from the areas
};

QPainterPath polyline(std::initializer_list<QPointF> points) {
    QPainterPath path;
    for (const QPointF& point : points)
        if (path.elementCount() == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    return path;
}

QPainterPath disc() {
    QPainterPath path;
    path.addEllipse(QPointF(8, 8), 6.8, 6.8);
    return path;
}

Glyph flame() {
    Glyph glyph;
    QPainterPath& path = glyph.areas;
    path.moveTo(8.6, 1.2);
    path.cubicTo(9.2, 4.2, 12.9, 6, 12.9, 10);
    path.cubicTo(12.9, 12.9, 10.7, 14.8, 8, 14.8);
    path.cubicTo(5.3, 14.8, 3.1, 12.9, 3.1, 10.1);
    path.cubicTo(3.1, 8, 4.3, 6.6, 5.2, 5.4);
    path.cubicTo(5.5, 6.6, 6, 7.3, 6.8, 7.6);
    path.cubicTo(6.4, 5, 6.9, 2.8, 8.6, 1.2);
    path.closeSubpath();
    QPainterPath heart;
    heart.moveTo(8.2, 8.6);
    heart.cubicTo(8.6, 9.8, 10.2, 10.4, 10.2, 12);
    heart.cubicTo(10.2, 13.2, 9.2, 13.9, 8, 13.9);
    heart.cubicTo(6.8, 13.9, 5.9, 13.1, 5.9, 12);
    heart.cubicTo(5.9, 10.6, 7.6, 10.2, 8.2, 8.6);
    path = path.subtracted(heart);
    return glyph;
}

Glyph bin() {
    Glyph glyph;
    glyph.lines = polyline({{2.5, 4.2}, {13.5, 4.2}});
    glyph.lines.addPath(polyline({{5.9, 4}, {6.3, 2.2}, {9.7, 2.2}, {10.1, 4}}));
    glyph.lines.addPath(polyline({{3.8, 4.4}, {4.6, 13.8}, {11.4, 13.8}, {12.2, 4.4}}));
    return glyph;
}

Glyph trash() {
    Glyph glyph = bin();
    glyph.lines.addPath(polyline({{6.6, 6.8}, {6.9, 11.4}}));
    glyph.lines.addPath(polyline({{9.4, 6.8}, {9.1, 11.4}}));
    return glyph;
}

Glyph gone() {
    Glyph glyph = bin();
    glyph.lines.addPath(polyline({{6.4, 7.2}, {9.6, 10.8}}));
    glyph.lines.addPath(polyline({{9.6, 7.2}, {6.4, 10.8}}));
    return glyph;
}

Glyph putBack() {
    Glyph glyph;
    glyph.lines.moveTo(2.6, 6);
    glyph.lines.lineTo(9.6, 6);
    glyph.lines.arcTo(QRectF(5.7, 6, 7.8, 7.8), 90, -180);
    glyph.lines.lineTo(5.6, 13.8);
    glyph.lines.addPath(polyline({{6, 2.4}, {2.4, 6}, {6, 9.6}}));
    return glyph;
}

Glyph lock() {
    Glyph glyph;
    glyph.areas.addRoundedRect(QRectF(3.4, 7, 9.2, 7.4), 1.6, 1.6);
    glyph.lines.moveTo(5.2, 7.2);
    glyph.lines.lineTo(5.2, 5.2);
    glyph.lines.arcTo(QRectF(5.2, 2.2, 5.6, 5.6), 180, -180);
    glyph.lines.lineTo(10.8, 7.2);
    return glyph;
}

Glyph warning() {
    Glyph glyph;
    glyph.lines = polyline({{8, 2}, {14.6, 13.6}, {1.4, 13.6}, {8, 2}});
    glyph.lines.closeSubpath();
    glyph.lines.addPath(polyline({{8, 6.4}, {8, 9.6}}));
    glyph.areas.addEllipse(QPointF(8, 11.7), 0.9, 0.9);
    return glyph;
}

Glyph checkCircle() {
    return {disc(), {}, polyline({{4.9, 8.3}, {7.1, 10.5}, {11.2, 5.8}})};
}

Glyph crossCircle() {
    QPainterPath cross = polyline({{5.6, 5.6}, {10.4, 10.4}});
    cross.addPath(polyline({{10.4, 5.6}, {5.6, 10.4}}));
    return {disc(), {}, cross};
}

Glyph circle() {
    Glyph glyph;
    glyph.lines.addEllipse(QPointF(8, 8), 6.1, 6.1);
    return glyph;
}

Glyph folder() {
    Glyph glyph;
    glyph.areas.addRoundedRect(QRectF(1.4, 4.4, 13.2, 9.4), 1.6, 1.6);
    QPainterPath tab;
    tab.addRoundedRect(QRectF(1.4, 2.6, 6, 4), 1.4, 1.4);
    glyph.areas = glyph.areas.united(tab);
    return glyph;
}

Glyph gear() {
    constexpr int kTeeth = 8;
    Glyph glyph;
    QPainterPath& wheel = glyph.areas;
    wheel.addEllipse(QPointF(8, 8), 5, 5);
    for (int tooth = 0; tooth < kTeeth; ++tooth) {
        const double angle = 2 * std::numbers::pi * tooth / kTeeth;
        QPainterPath bar;
        bar.addRoundedRect(QRectF(-1.2, -7, 2.4, 3), 0.6, 0.6);
        QTransform turned;
        turned.translate(8, 8);
        turned.rotateRadians(angle);
        wheel = wheel.united(turned.map(bar));
    }
    QPainterPath hub;
    hub.addEllipse(QPointF(8, 8), 2.3, 2.3);
    wheel = wheel.subtracted(hub);
    return glyph;
}

Glyph app() {
    Glyph glyph;
    glyph.lines.addRoundedRect(QRectF(1.8, 1.8, 12.4, 12.4), 3.2, 3.2);
    glyph.lines.addPath(polyline({{4.8, 11.2}, {8, 4.8}, {11.2, 11.2}}));
    glyph.lines.addPath(polyline({{4.2, 9.4}, {11.8, 9.4}}));
    return glyph;
}

Glyph search() {
    Glyph glyph;
    glyph.lines.addEllipse(QPointF(6.8, 6.8), 4.6, 4.6);
    glyph.lines.addPath(polyline({{10.2, 10.2}, {14, 14}}));
    return glyph;
}

Glyph glyphOf(Symbol symbol) {
    switch (symbol) {
    case Symbol::flame:
        return flame();
    case Symbol::trash:
        return trash();
    case Symbol::putBack:
        return putBack();
    case Symbol::gone:
        return gone();
    case Symbol::lock:
        return lock();
    case Symbol::warning:
        return warning();
    case Symbol::checkCircle:
        return checkCircle();
    case Symbol::circle:
        return circle();
    case Symbol::crossCircle:
        return crossCircle();
    case Symbol::folder:
        return folder();
    case Symbol::gear:
        return gear();
    case Symbol::app:
        return app();
    case Symbol::search:
        return search();
    }
    return {};
}

QPainterPath stroked(const QPainterPath& lines, double width) {
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    return stroker.createStroke(lines);
}

class SymbolEngine : public QIconEngine {
  public:
    SymbolEngine(Symbol symbol, const QColor& colour) : m_symbol(symbol), m_colour(colour) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        QColor colour = m_colour;
        if (mode == QIcon::Disabled)
            colour.setAlphaF(colour.alphaF() / 2);
        paintSymbol(*painter, rect, m_symbol, colour);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new SymbolEngine(*this); }

  private:
    Symbol m_symbol;
    QColor m_colour;
};

} // namespace

void paintSymbol(QPainter& painter, const QRectF& square, Symbol symbol, const QColor& colour) {
    const double side = std::min(square.width(), square.height());
    const Glyph glyph = glyphOf(symbol);
    QPainterPath path = glyph.areas.subtracted(stroked(glyph.cuts, kLine));
    path = path.united(stroked(glyph.lines, kLine));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.center() - QPointF(side, side) / 2);
    painter.scale(side / kUnits, side / kUnits);
    painter.fillPath(path, colour);
    painter.restore();
}

QIcon symbolIcon(Symbol symbol, const QColor& colour) {
    return QIcon(new SymbolEngine(symbol, colour));
}

} // namespace vexmoor
