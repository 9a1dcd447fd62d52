#include "Transition.h"

#include <QWidget>

namespace vexmoor {
namespace {

bool reducedMotion() {
    return false;
}

} // namespace

Transition::Transition(QWidget& widget, int milliseconds)
    : QVariantAnimation(&widget), m_widget(widget) {
    setDuration(milliseconds);
    setEasingCurve(QEasingCurve::OutCubic);
    connect(this, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_at = value.toDouble();
        m_widget.update();
    });
}

void Transition::setAt(double at) {
    stop();
    m_at = at;
    m_widget.update();
}

void Transition::moveTo(double at) {
    if (!m_widget.isVisible() || reducedMotion()) {
        setAt(at);
        return;
    }
    stop();
    setStartValue(m_at);
    setEndValue(at);
    start();
}

} // namespace vexmoor
