#include "FlameButton.h"

#include "Symbol.h"

#include <QPainter>

namespace vexmoor {

FlameButton::FlameButton(const QString& text, QWidget* parent)
    : AccentButton(text, parent, Kind::link) {}

void FlameButton::setAccent(const Accent& accent) {
    m_colour = accent.colour;
    AccentButton::setAccent(accent);
}

void FlameButton::setCompact(bool isCompact) {
    m_isCompact = isCompact;
    setToolTip(isCompact ? text() : QString());
    updateGeometry();
    update();
}

QSize FlameButton::compactSize() const {
    const int side = AccentButton::sizeHint().height();
    return {side, side};
}

QSize FlameButton::sizeHint() const {
    return m_isCompact ? compactSize() : AccentButton::sizeHint();
}

void FlameButton::paintEvent(QPaintEvent* event) {
    if (!m_isCompact) {
        AccentButton::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintFocusRing(painter);
    QRectF square(0, 0, 18, 18);
    square.moveCenter(QRectF(rect()).center() + QPointF(0, isDown() ? 1 : 0));
    painter.setOpacity(underMouse() ? 1 : 0.85);
    paintSymbol(painter, square, Symbol::flame, m_colour);
}

} // namespace vexmoor
