#include "Figure.h"

#include "TabularText.h"
#include "TextStyle.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace vexmoor {
namespace {

constexpr int kGap = 6; ///< between value and caption

} // namespace

Figure::Figure(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Figure::setFigure(const QString& value, const QString& caption) {
    if (value == m_value && caption == m_caption)
        return;
    m_value = value;
    m_caption = caption;
    setText(value + ' ' + caption);
}

QFont Figure::valueFont() const {
    return textFont(font(), 22, QFont::Bold);
}

QFont Figure::captionFont() const {
    return textFont(font(), 12);
}

QSize Figure::sizeHint() const {
    const double width = tabularWidth(valueFont(), m_value) + kGap +
                         QFontMetricsF(captionFont()).horizontalAdvance(m_caption);
    return {static_cast<int>(std::ceil(width)), QFontMetrics(valueFont()).height()};
}

void Figure::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QFont large = valueFont();
    const double caption = QFontMetricsF(captionFont()).horizontalAdvance(m_caption);
    const double room = std::max(1.0, width() - kGap - caption);
    double needed = tabularWidth(large, m_value);
    if (needed > room) {
        large.setPixelSize(std::max(1, static_cast<int>(large.pixelSize() * room / needed)));
        needed = tabularWidth(large, m_value);
    }
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const double baseline = QFontMetrics(valueFont()).ascent();
    painter.setPen(palette().color(QPalette::Text));
    drawTabular(painter, {isMirrored ? width() - needed : 0, baseline}, large, m_value);
    painter.setFont(captionFont());
    painter.setPen(secondaryText(palette()));
    painter.drawText(
        QPointF(isMirrored ? width() - needed - kGap - caption : needed + kGap, baseline),
        m_caption);
}

} // namespace vexmoor
