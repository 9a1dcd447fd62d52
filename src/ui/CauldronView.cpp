#include "CauldronView.h"

#include "Motion.h"

#include "art/CauldronArt.h"
#include "dock/DockIconAnimator.h"
#include "dock/PixelImage.h"

#include <QPainter>

namespace vexmoor {

CauldronView::CauldronView(const Skin& skin, int size, QWidget* parent,
                           const MakeFrameTimer& makeTimer)
    : QWidget(parent), m_skin(skin), m_side(size), m_canvas(0, 0), m_timer(makeTimer()) {
    setFixedSize(size, size);
    draw();
    m_reducedMotion = subscribeToReducedMotion([this](bool) { run(); });
}

int CauldronView::crispSide(int most, double ratio) {
    for (int side = most; side > 0; --side) {
        const int pixels = qRound(side * ratio);
        if (pixels > 0 && pixels % CauldronArt::kWidth == 0)
            return side;
    }
    return most;
}

void CauldronView::setSkin(const Skin& skin) {
    m_skin = skin;
    draw();
}

void CauldronView::setSide(int size) {
    m_side = size;
    setFixedSize(size, size);
}

void CauldronView::draw() {
    PixelCanvas canvas = DockIconAnimator::iconOf(CauldronArt::idle(m_tick, false, 0, m_skin));
    if (canvas == m_canvas)
        return;
    m_canvas = std::move(canvas);
    update();
}

void CauldronView::run() {
    if (!isVisible() || reducedMotion()) {
        m_timer->stop();
        return;
    }
    m_timer->start(FrameTimer::Interval(1 / DockIconAnimator::kIdleFps), [this] {
        ++m_tick;
        draw();
    });
}

void CauldronView::showEvent(QShowEvent*) {
    run();
}

void CauldronView::hideEvent(QHideEvent*) {
    m_timer->stop();
}

void CauldronView::paintEvent(QPaintEvent*) {
    const double ratio = devicePixelRatioF();
    const QSize size = (QSizeF(this->size()) * ratio).toSize();
    QImage image = enlarged(m_canvas, size);
    image.setDevicePixelRatio(ratio);
    QPainter(this).drawImage(QPointF(0, 0), image);
}

} // namespace vexmoor
