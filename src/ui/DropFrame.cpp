#include "DropFrame.h"

#include "Accent.h"
#include "TextStyle.h"

#include <QPainter>

namespace vexmoor {

DropFrame::DropFrame(QWidget& window) : QWidget(&window), m_skin(Skin::iron()) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void DropFrame::setShown(bool isShown, const Skin& skin) {
    m_skin = skin;
    setGeometry(parentWidget()->rect());
    raise();
    setVisible(isShown);
}

void DropFrame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor colour = Accent::of(m_skin, groundOf(palette())).colour;
    QColor veil = colour;
    veil.setAlphaF(0.08F);
    painter.setPen(QPen(colour, 3));
    painter.setBrush(veil);
    painter.drawRoundedRect(QRectF(rect()).adjusted(4, 4, -4, -4), 10, 10);
}

} // namespace vexmoor
