#include "ShortMotion.h"

#include "Motion.h"

namespace vexmoor {
namespace {

constexpr int kMilliseconds = 160;

} // namespace

ShortMotion::ShortMotion(std::function<void(double)> step, QObject* parent)
    : QVariantAnimation(parent), m_step(std::move(step)) {
    setDuration(kMilliseconds);
    setStartValue(0.0);
    setEndValue(1.0);
    setEasingCurve(QEasingCurve::OutCubic);
    connect(this, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { advance(value.toDouble()); });
}

void ShortMotion::begin() {
    stop();
    if (reducedMotion()) {
        advance(1);
        return;
    }
    advance(0);
    start();
}

void ShortMotion::finish() {
    if (state() == Stopped)
        return;
    stop();
    advance(1);
}

void ShortMotion::advance(double progress) {
    m_progress = progress;
    m_step(progress);
}

} // namespace vexmoor
