#include "Figure.h"

#include "TextStyle.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vexmoor {

Figure::Figure(double size, QWidget* parent) : QLabel(parent), m_size(size) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Figure::setFigure(const QString& value, const QString& caption) {
    m_value = value;
    m_caption = caption;
    setText(value + ' ' + caption);
    updateGeometry();
}

QFont Figure::valueFont() const {
    return textFont(font(), m_size, QFont::Bold);
}

QFont Figure::captionFont() const {
    return textFont(font(), 12);
}

QSize Figure::sizeHint() const {
    const QFontMetrics value(valueFont());
    const QFontMetrics caption(captionFont());
    return {std::max(value.horizontalAdvance(m_value), caption.horizontalAdvance(m_caption)),
            value.height() + caption.height()};
}

void Figure::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QFont large = valueFont();
    const int valueHeight = QFontMetrics(large).height();
    const int needed = QFontMetrics(large).horizontalAdvance(m_value);
    if (needed > width())
        large.setPixelSize(std::max(1, large.pixelSize() * width() / needed));
    painter.setFont(large);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRect(0, 0, width(), valueHeight), Qt::AlignHCenter | Qt::AlignBottom,
                     m_value);
    painter.setFont(captionFont());
    painter.setPen(secondaryText(palette()));
    painter.drawText(rect().adjusted(0, valueHeight, 0, 0), Qt::AlignHCenter | Qt::AlignTop,
                     m_caption);
}

} // namespace vexmoor
