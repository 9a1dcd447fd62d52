#include "Transition.h"

#include "Motion.h"

#include <QEasingCurve>
#include <QWidget>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kFrameMilliseconds = 16;

} // namespace

Transition::Transition(QWidget& widget, int milliseconds)
    : QObject(&widget), m_widget(widget), m_milliseconds(milliseconds) {
    m_frames.setInterval(kFrameMilliseconds);
    connect(&m_frames, &QTimer::timeout, this, &Transition::step);
}

void Transition::setAt(double at) {
    m_frames.stop();
    m_at = at;
    m_widget.update();
    emit moved(at);
}

void Transition::moveTo(double at) {
    if (!m_widget.isVisible() || reducedMotion()) {
        setAt(at);
        emit finished();
        return;
    }
    m_from = m_at;
    m_to = at;
    m_since.start();
    m_frames.start();
}

void Transition::step() {
    const double passed = static_cast<double>(m_since.elapsed()) / m_milliseconds;
    if (passed >= 1) {
        setAt(m_to);
        emit finished();
        return;
    }
    const double eased = QEasingCurve(QEasingCurve::OutCubic).valueForProgress(passed);
    m_at = m_from + (m_to - m_from) * eased;
    m_widget.update();
    emit moved(m_at);
}

} // namespace vexmoor
