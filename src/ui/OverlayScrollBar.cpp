#include "OverlayScrollBar.h"

#include "Accent.h"
#include "TextStyle.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kWidth = 10;
constexpr int kGap = 2; ///< around the thumb
constexpr int kShortestThumb = 32;

} // namespace

OverlayScrollBar::OverlayScrollBar(QAbstractScrollArea& area)
    : QScrollBar(Qt::Vertical, &area), m_area(area) {
    setAttribute(Qt::WA_Hover);
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.installEventFilter(this);
    QScrollBar* const own = area.verticalScrollBar();
    connect(own, &QScrollBar::rangeChanged, this, &OverlayScrollBar::follow);
    connect(own, &QScrollBar::valueChanged, this, &QScrollBar::setValue);
    connect(this, &QScrollBar::valueChanged, own, &QScrollBar::setValue);
    follow();
}

void OverlayScrollBar::follow() {
    const QScrollBar* const own = m_area.verticalScrollBar();
    setRange(own->minimum(), own->maximum());
    setPageStep(own->pageStep());
    setSingleStep(own->singleStep());
    setValue(own->value());
    setVisible(own->maximum() > own->minimum());
    place();
}

void OverlayScrollBar::place() {
    const QRect right(m_area.width() - kWidth, 0, kWidth, m_area.height());
    setGeometry(QStyle::visualRect(m_area.layoutDirection(), m_area.rect(), right));
    raise();
}

QRect OverlayScrollBar::thumb() const {
    const int room = height() - 2 * kGap;
    const int all = maximum() - minimum() + pageStep();
    const int length = std::clamp(all > 0 ? room * pageStep() / all : room,
                                  std::min(kShortestThumb, room), std::max(room, 0));
    const int top = QStyle::sliderPositionFromValue(minimum(), maximum(), value(), room - length);
    return {kGap, kGap + top, kWidth - 2 * kGap, length};
}

void OverlayScrollBar::paintEvent(QPaintEvent*) {
    const bool touched = underMouse() || m_held;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(
        mixed(groundOf(palette()), palette().color(QPalette::Text), touched ? 0.5 : 0.3));
    const QRectF thumb = this->thumb();
    painter.drawRoundedRect(thumb, thumb.width() / 2, thumb.width() / 2);
}

void OverlayScrollBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const int y = event->position().toPoint().y();
    const QRect thumb = this->thumb();
    if (y < thumb.top())
        triggerAction(SliderPageStepSub);
    else if (y > thumb.bottom())
        triggerAction(SliderPageStepAdd);
    else
        m_held = y - thumb.top();
    update();
}

void OverlayScrollBar::mouseMoveEvent(QMouseEvent* event) {
    if (!m_held)
        return;
    const int room = height() - 2 * kGap - thumb().height();
    const int top = event->position().toPoint().y() - *m_held - kGap;
    setValue(QStyle::sliderValueFromPosition(minimum(), maximum(), top, room));
}

void OverlayScrollBar::mouseReleaseEvent(QMouseEvent*) {
    m_held.reset();
    update();
}

bool OverlayScrollBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutDirectionChange)
        follow();
    return QScrollBar::eventFilter(watched, event);
}

} // namespace vexmoor
