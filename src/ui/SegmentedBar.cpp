#include "SegmentedBar.h"

#include "Accent.h"
#include "FocusRing.h"
#include "TextStyle.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kTrack = 3; ///< margin around the selected segment
constexpr double kCorner = 9;

} // namespace

SegmentedBar::SegmentedBar(QWidget* parent)
    : QTabBar(parent), m_skin(Skin::iron()), m_focus(new FocusRing(*this)) {
    setDrawBase(false);
    setUsesScrollButtons(false);
    setExpanding(false); // tabSizeHint() already fills the bar
    setElideMode(Qt::ElideNone);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void SegmentedBar::setSkin(const Skin& skin) {
    m_skin = skin;
    update();
}

QFont SegmentedBar::fontOf(int index) const {
    return textFont(font(), 12.5, index == currentIndex() ? QFont::DemiBold : QFont::Normal);
}

QSize SegmentedBar::sizeHint() const {
    return {320, QFontMetrics(fontOf(currentIndex())).height() + 18};
}

int SegmentedBar::textWidth(int index) const {
    return QFontMetrics(textFont(font(), 12.5, QFont::DemiBold)).horizontalAdvance(tabText(index));
}

/// Each segment gets its text's width and an equal share of the remaining width.
QSize SegmentedBar::tabSizeHint(int index) const {
    int all = 0;
    for (int i = 0; i < count(); ++i)
        all += textWidth(i);
    const int left = width() - all;
    const auto end = [&](int count) { return left * count / std::max(1, this->count()); };
    return {std::max(1, textWidth(index) + end(index + 1) - end(index)), sizeHint().height()};
}

void SegmentedBar::resizeEvent(QResizeEvent* event) {
    QEvent changed(QEvent::FontChange); // triggers a new layout
    QTabBar::changeEvent(&changed);
    QTabBar::resizeEvent(event);
}

void SegmentedBar::changeEvent(QEvent* event) {
    QTabBar::changeEvent(event);
    update();
}

void SegmentedBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mixed(groundOf(palette()), palette().color(QPalette::Text), 0.08));
    painter.drawRoundedRect(rect(), kCorner, kCorner);
    for (int i = 0; i < count(); ++i)
        paintSegment(painter, i);
}

void SegmentedBar::paintSegment(QPainter& painter, int index) const {
    const QColor ground = groundOf(palette());
    const QColor text = palette().color(QPalette::Text);
    const QRectF segment = QRectF(tabRect(index)).adjusted(kTrack, kTrack, -kTrack, -kTrack);
    const bool isChosen = index == currentIndex();
    if (isChosen) {
        const QColor surface = isDark(ground) ? mixed(ground, text, 0.2) : ground;
        painter.setPen(Qt::NoPen);
        painter.setBrush(mixed(surface, isDark(ground) ? Qt::black : text, 0.2));
        painter.drawRoundedRect(segment.translated(0, 0.75), kCorner - 2, kCorner - 2);
        painter.setBrush(surface);
        painter.drawRoundedRect(segment, kCorner - 2, kCorner - 2);
        if (m_focus->isShown()) {
            painter.setPen(QPen(Accent::of(m_skin, ground).colour, 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(segment.adjusted(0.5, 0.5, -0.5, -0.5), kCorner - 2,
                                    kCorner - 2);
        }
    }
    const bool isUnderPointer =
        underMouse() && tabRect(index).contains(mapFromGlobal(QCursor::pos()));
    QFont font = fontOf(index);
    const double room = segment.width() - 4;
    const double needed = QFontMetricsF(font).horizontalAdvance(tabText(index));
    if (needed > room)
        font.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * room / needed)));
    painter.setFont(font);
    painter.setPen(isChosen || isUnderPointer ? text : mixed(text, ground, 0.25));
    painter.drawText(segment, Qt::AlignCenter, tabText(index));
}

} // namespace vexmoor
