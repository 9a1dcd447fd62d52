#include "SymbolText.h"

#include "TextStyle.h"

#include <QPainter>

namespace vexmoor {
namespace {

constexpr int kGap = 6;

} // namespace

SymbolText::SymbolText(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void SymbolText::setSymbolText(Symbol symbol, const QString& text) {
    m_symbol = symbol;
    setText(text);
    updateGeometry();
    update();
}

void SymbolText::setSymbolColour(const QColor& colour) {
    m_colour = colour;
    update();
}

QFont SymbolText::textFontHere() const {
    return textFont(font(), 13, QFont::Medium);
}

QSize SymbolText::sizeHint() const {
    const QFontMetrics metrics(textFontHere());
    return {metrics.height() + kGap + metrics.horizontalAdvance(text()), metrics.height() + 4};
}

void SymbolText::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(textFontHere());
    const int side = painter.fontMetrics().height();
    const int whole = sizeHint().width();
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const int left = (width() - whole) / 2;
    const QRect square(isMirrored ? left + whole - side : left, (height() - side) / 2, side, side);
    paintSymbol(painter, square, m_symbol, m_colour);
    painter.setPen(palette().color(QPalette::Text));
    const int textLeft = isMirrored ? left : left + side + kGap;
    painter.drawText(QRect(textLeft, 0, whole - side - kGap, height()),
                     Qt::AlignVCenter | Qt::AlignLeft, text());
}

} // namespace vexmoor
