#include "AccentButton.h"

#include "FocusRing.h"
#include "TextStyle.h"

#include <QPainter>

namespace vexmoor {
namespace {

constexpr double kCorner = 7;

} // namespace

AccentButton::AccentButton(const QString& text, QWidget* parent, Kind kind)
    : QPushButton(text, parent), m_kind(kind), m_ring(new FocusRing(*this)) {
    setAutoDefault(true); // Return presses it too
    setAttribute(Qt::WA_Hover);
}

void AccentButton::setAccent(const Accent& accent) {
    m_accent = accent;
    update();
}

QFont AccentButton::textFontHere() const {
    return textFont(font(), m_kind == Kind::link ? 12 : 13,
                    m_kind == Kind::primary ? QFont::DemiBold : QFont::Medium);
}

int AccentButton::padding() const {
    switch (m_kind) {
    case Kind::primary:
    case Kind::plain:
        return 14;
    case Kind::link:
        return 4;
    }
    return 0;
}

QSize AccentButton::sizeHint() const {
    const QFontMetrics metrics(textFontHere());
    return QSize(metrics.horizontalAdvance(text()) + 2 * padding(), metrics.height() + 16) +
           QSize(2 * FocusRing::kRoom, 2 * FocusRing::kRoom);
}

QColor AccentButton::textColour() const {
    if (m_kind == Kind::primary && isEnabled())
        return m_accent.text;
    const QColor colour =
        m_kind == Kind::link ? m_accent.colour : palette().color(QPalette::Active, QPalette::Text);
    return isEnabled() ? colour : mixed(colour, groundOf(palette()), 0.55);
}

void AccentButton::paintSurface(QPainter& painter, const QRect& surface) const {
    const bool touched = isEnabled() && (underMouse() || isDown());
    const QColor ground = groundOf(palette());
    const QColor text = palette().color(QPalette::Active, QPalette::Text);
    painter.setPen(Qt::NoPen);
    switch (m_kind) {
    case Kind::primary:
        painter.setBrush(!isEnabled() ? mixed(ground, text, 0.08)
                         : touched    ? m_accent.strong
                                      : m_accent.colour);
        painter.drawRoundedRect(surface, kCorner, kCorner);
        break;
    case Kind::plain:
        painter.setPen(QPen(mixed(ground, text, isDark(ground) ? 0.22 : 0.18), 1));
        painter.setBrush(mixed(ground, text, touched ? 0.08 : isDark(ground) ? 0.04 : 0));
        painter.drawRoundedRect(QRectF(surface).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
        break;
    case Kind::link:
        break;
    }
}

void AccentButton::paintFocusRing(QPainter& painter) const {
    m_ring->paint(painter, m_accent.colour, kCorner + 3);
}

void AccentButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintFocusRing(painter);
    const QRect surface =
        rect().adjusted(FocusRing::kRoom, FocusRing::kRoom, -FocusRing::kRoom, -FocusRing::kRoom);
    paintSurface(painter, surface);
    QFont font = textFontHere();
    font.setUnderline(m_kind == Kind::link && isEnabled() && underMouse());
    painter.setPen(textColour());
    painter.setFont(font);
    const QString shown =
        QFontMetrics(font).elidedText(text(), Qt::ElideRight, surface.width() - padding());
    painter.drawText(surface.translated(0, isDown() ? 1 : 0), Qt::AlignCenter, shown);
}

} // namespace vexmoor
