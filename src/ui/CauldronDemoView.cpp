#include "CauldronDemoView.h"

#include "Motion.h"
#include "SampleIcon.h"

#include "art/BurnCurve.h"
#include "art/CauldronArt.h"

#include <QPainter>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kFramesPerTick = 3; ///< the idle animation has 8 frames per second, this view 24
constexpr std::uint64_t kSeed = 1;
constexpr int kStillFrame =
    CauldronDemoView::kIdleFrames + 14; ///< a frame with the flame and the document

/// Hovering pots bob more slowly here.
double idleMoment(int tick) {
    return tick / 3.0;
}

PixelCanvas idleScene(int tick, const Skin& skin) {
    return CauldronArt::idle(tick, false, idleMoment(tick) - tick, skin);
}

PixelCanvas burnScene(int frame, const Skin& skin, const QImage& sample) {
    constexpr int kLastIdleTick = (CauldronDemoView::kIdleFrames - 1) / kFramesPerTick;
    const double t = BurnCurve::moment(frame);
    const std::uint64_t seed = BurnCurve::frameSeed(kSeed, t);
    return CauldronArt::burn({.t = t,
                              .height = BurnCurve::height(t, BurnCurve::kFullHeight, seed),
                              .simmer = BurnCurve::simmers(t),
                              .icon = sample,
                              .seed = seed,
                              .splitAtPool = false,
                              .lift = CauldronArt::hoverLift(idleMoment(kLastIdleTick), skin),
                              .skin = skin})
        .scene;
}

} // namespace

static_assert(CauldronDemoView::kBurnFrames == BurnCurve::kFrames);

CauldronDemoView::CauldronDemoView(const Skin& skin, int scale, QWidget* parent,
                                   const MakeFrameTimer& makeTimer)
    : QWidget(parent), m_skin(skin), m_scale(scale), m_sample(sampleIcon()), m_canvas(0, 0),
      m_timer(makeTimer()) {
    setFixedSize(CauldronArt::kWidth * scale, CauldronArt::kHeight * scale);
    m_reducedMotion = subscribeToReducedMotion([this](bool) { run(); });
    draw();
}

PixelCanvas CauldronDemoView::scene(int frame, const Skin& skin, const QImage& sample) {
    const int moment = frame % kFrames;
    const bool burns = kIdleFrames <= moment && moment < kIdleFrames + kBurnFrames;
    return burns ? burnScene(moment - kIdleFrames, skin, sample)
                 : idleScene(moment / kFramesPerTick, skin);
}

void CauldronDemoView::setSkin(const Skin& skin) {
    m_skin = skin;
    draw();
}

void CauldronDemoView::draw() {
    PixelCanvas canvas = scene(reducedMotion() ? kStillFrame : m_frame, m_skin, m_sample);
    if (canvas == m_canvas)
        return;
    m_canvas = std::move(canvas);
    update();
}

void CauldronDemoView::run() {
    draw();
    if (!isVisible() || reducedMotion()) {
        m_timer->stop();
        return;
    }
    m_timer->start(FrameTimer::Interval(1 / kFps), [this] {
        m_frame = (m_frame + 1) % kFrames;
        draw();
    });
}

void CauldronDemoView::showEvent(QShowEvent*) {
    run();
}

void CauldronDemoView::hideEvent(QHideEvent*) {
    m_timer->stop();
}

void CauldronDemoView::paintEvent(QPaintEvent*) {
    const double ratio = devicePixelRatioF();
    QImage image = m_canvas.nsImage(std::max(1, static_cast<int>(m_scale * ratio)));
    const QSize room = (QSizeF(size()) * ratio).toSize();
    const QPointF corner((room.width() - image.width()) / 2, room.height() - image.height());
    image.setDevicePixelRatio(ratio);
    QPainter(this).drawImage(corner / ratio, image);
}

} // namespace vexmoor
