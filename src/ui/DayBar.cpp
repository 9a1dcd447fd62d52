#include "DayBar.h"

#include "Transition.h"

#include <QPainter>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr double kEmptyHeight = 4;
constexpr double kCorner = 4;
constexpr int kMilliseconds = 160;

} // namespace

DayBar::DayBar(QWidget* parent) : QLabel(parent), m_shown(new Transition(*this, kMilliseconds)) {
    setTextFormat(Qt::PlainText);
}

void DayBar::setDay(const QString& description, double share, bool grows) {
    if (description != text())
        setText(description);
    if (share == m_share)
        return;
    m_share = share;
    if (grows)
        m_shown->moveTo(share);
    else
        m_shown->setAt(share);
}

void DayBar::setDescribed(bool isDescribed) {
    if (std::exchange(m_isDescribed, isDescribed) != isDescribed)
        update();
}

void DayBar::setColours(const Colours& colours) {
    if (colours == m_colours)
        return;
    m_colours = colours;
    update();
}

QRectF DayBar::bar() const {
    const QRectF room = QRectF(rect()).adjusted(kRingRoom, kRingRoom, -kRingRoom, -kRingRoom);
    const double share = m_shown->at();
    const double height =
        share > 0 ? std::max(kEmptyHeight + 2, room.height() * share) : kEmptyHeight;
    return {room.left(), room.bottom() - height, room.width(), height};
}

void DayBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRectF shape = bar();
    const double corner = std::min(kCorner, shape.height() / 2);
    if (shape.height() > kEmptyHeight) {
        QLinearGradient gradient(0, kRingRoom, 0, height() - kRingRoom);
        gradient.setColorAt(0, m_colours.top);
        gradient.setColorAt(1, m_colours.bottom);
        painter.setBrush(gradient);
    } else {
        painter.setBrush(m_colours.empty);
    }
    painter.drawRoundedRect(shape, corner, corner);
    if (!m_isDescribed)
        return;
    constexpr double kOut = kRingRoom - 1;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(m_colours.ring, 2));
    painter.drawRoundedRect(shape.adjusted(-kOut, -kOut, kOut, kOut), corner + kOut - 0.5,
                            corner + kOut - 0.5);
}

void DayBar::enterEvent(QEnterEvent*) {
    emit pointed(true);
}

void DayBar::leaveEvent(QEvent*) {
    emit pointed(false);
}

void DayBar::hideEvent(QHideEvent*) {
    m_shown->setAt(m_share);
}

} // namespace vexmoor
