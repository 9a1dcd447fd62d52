#include "AccentButton.h"

#include "TextStyle.h"

#include <QFocusEvent>
#include <QPainter>

namespace vexmoor {
namespace {

constexpr int kRing = 4; ///< around the button: the ring and the gap to it
constexpr double kCorner = 7;

} // namespace

AccentButton::AccentButton(const QString& text, QWidget* parent) : QPushButton(text, parent) {
    setAutoDefault(true); // Return presses it too
    setAttribute(Qt::WA_Hover);
}

void AccentButton::setAccent(const Accent& accent) {
    m_accent = accent;
    update();
}

QFont AccentButton::textFontHere() const {
    return textFont(font(), 13, QFont::DemiBold);
}

QSize AccentButton::sizeHint() const {
    const QFontMetrics metrics(textFontHere());
    return QSize(metrics.horizontalAdvance(text()) + 40, metrics.height() + 16) +
           QSize(2 * kRing, 2 * kRing);
}

bool AccentButton::event(QEvent* event) {
    // A window gives its focus to the first that takes it; then there may be nowhere else to go.
    if (event->type() == QEvent::KeyPress) {
        m_ringed = true;
        update();
    }
    return QPushButton::event(event);
}

void AccentButton::focusInEvent(QFocusEvent* event) {
    m_ringed = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
               event->reason() == Qt::ShortcutFocusReason;
    QPushButton::focusInEvent(event);
}

void AccentButton::focusOutEvent(QFocusEvent* event) {
    m_ringed = false;
    QPushButton::focusOutEvent(event);
}

void AccentButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_ringed) {
        painter.setPen(QPen(m_accent.colour, 2));
        painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), kCorner + 3, kCorner + 3);
    }
    const bool touched = underMouse() || isDown();
    painter.setPen(Qt::NoPen);
    painter.setBrush(touched ? m_accent.strong : m_accent.colour);
    const QRect surface = rect().adjusted(kRing, kRing, -kRing, -kRing);
    painter.drawRoundedRect(surface, kCorner, kCorner);
    painter.setPen(m_accent.text);
    painter.setFont(textFontHere());
    painter.drawText(surface.translated(0, isDown() ? 1 : 0), Qt::AlignCenter, text());
}

} // namespace vexmoor
