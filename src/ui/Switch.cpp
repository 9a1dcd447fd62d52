#include "Switch.h"

#include "FocusRing.h"
#include "TextStyle.h"
#include "Transition.h"

#include <QPainter>

namespace vexmoor {
namespace {

constexpr QSize kTrack(40, 22);
constexpr double kKnobGap = 2;
constexpr int kMilliseconds = 140;
constexpr double kVisible = 3; ///< minimum WCAG 2 contrast for control elements

/// Darkens the colour until it contrasts with a white knob.
QColor underWhite(const QColor& colour) {
    constexpr int kSteps = 32;
    for (int step = 0; step < kSteps; ++step) {
        const QColor shade = mixed(colour, Qt::black, static_cast<double>(step) / kSteps);
        if (contrast(shade, Qt::white) >= kVisible)
            return shade;
    }
    return Qt::black;
}

} // namespace

Switch::Switch(QWidget* parent)
    : QCheckBox(parent), m_ring(new FocusRing(*this)),
      m_knob(new Transition(*this, kMilliseconds)) {
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QCheckBox::toggled, m_knob, [this](bool isOn) { m_knob->moveTo(isOn ? 1 : 0); });
}

void Switch::setAccent(const Accent& accent) {
    m_accent = accent;
    update();
}

QSize Switch::sizeHint() const {
    return kTrack + QSize(2 * FocusRing::kRoom, 2 * FocusRing::kRoom);
}

QColor Switch::track() const {
    const QColor ground = groundOf(palette());
    const QColor off = underWhite(mixed(ground, palette().color(QPalette::Text), 0.45));
    const QColor on = underWhite(isDark(ground) ? m_accent.glow : m_accent.colour);
    return mixed(off, on, m_knob->at());
}

void Switch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr int kRoom = FocusRing::kRoom;
    const QRectF surface = QRectF(rect()).adjusted(kRoom, kRoom, -kRoom, -kRoom);
    painter.setPen(Qt::NoPen);
    painter.setBrush(underMouse() ? mixed(track(), Qt::black, 0.08) : track());
    painter.drawRoundedRect(surface, surface.height() / 2, surface.height() / 2);

    const double side = surface.height() - 2 * kKnobGap;
    const double way = surface.width() - surface.height();
    const double at = layoutDirection() == Qt::RightToLeft ? 1 - m_knob->at() : m_knob->at();
    const QRectF knob(surface.left() + kKnobGap + way * at, surface.top() + kKnobGap, side, side);
    painter.setBrush(QColor(0, 0, 0, 46));
    painter.drawEllipse(knob.translated(0, 0.75));
    painter.setBrush(Qt::white);
    painter.drawEllipse(knob);
    m_ring->paint(painter, m_accent.colour, height() / 2.0);
}

} // namespace vexmoor
