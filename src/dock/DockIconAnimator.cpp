#include "DockIconAnimator.h"

#include "thumbnails/ImagePicture.h"

#include "art/BurnCurve.h"
#include "art/CauldronArt.h"

#include <algorithm>
#include <cmath>

namespace vexmoor {
namespace {

constexpr int kIconTop = 20; ///< the icon's first row in a frame; its side equals the frame's width
constexpr int kFlameRows = 27;

/// A null image represents an item without a picture.
QImage imageOrNull(std::optional<QImage>& image) {
    return image ? std::move(*image) : QImage();
}

} // namespace

DockIconAnimator::DockIconAnimator(Surroundings surroundings)
    : m_surroundings(std::move(surroundings)), m_timer(m_surroundings.makeTimer()),
      m_idleTimer(m_surroundings.makeTimer()) {}

DockIconAnimator::~DockIconAnimator() = default;

void DockIconAnimator::play(std::vector<PicturePointer> pictures) {
    Images images;
    std::ranges::transform(pictures, std::back_inserter(images), imageOf);
    play(std::move(images));
}

void DockIconAnimator::play(Images images) {
    if (images.empty() || m_still)
        return;
    if (m_suspended) // not visible: keep one batch's pictures for later
        m_queue.clear();
    if (images.size() >= kSwarmFrom) {
        images.resize(std::min(images.size(), kSwarmIcons));
        Swarm swarm;
        std::ranges::transform(images, std::back_inserter(swarm.icons), imageOrNull);
        m_queue.emplace_back(std::move(swarm));
    } else {
        for (std::optional<QImage>& image : images)
            m_queue.emplace_back(Burn{.icon = imageOrNull(image)});
    }
    if (!m_run)
        next();
}

void DockIconAnimator::next() {
    if (m_queue.empty()) {
        m_timer->stop();
        m_idleTick = 0;
        m_run.reset();
        orderOut();
        return;
    }
    Drop drop = std::move(m_queue.front());
    m_queue.pop_front();
    const double lift = startingLift();
    const bool escape = canEscape();
    if (const Swarm* const swarm = std::get_if<Swarm>(&drop); swarm && !escape)
        drop = Burn{.icon = swarm->icons.front()};
    if (Burn* const burn = std::get_if<Burn>(&drop))
        burn->full = escape;
    if (!escape)
        orderOut();
    const Swarm* const swarm = std::get_if<Swarm>(&drop);
    const int frames = swarm ? swarmFrames(swarm->icons.size()) : BurnCurve::kFrames;
    m_run = Run{.drop = std::move(drop),
                .seed = m_surroundings.random() + 1,
                .lift = lift,
                .frames = frames};
    startTimer();
}

bool DockIconAnimator::canEscape() const {
    if (!m_escapeDock || !m_surroundings.accessibility.isTrusted())
        return false;
    const std::optional<DeskRect> tile = m_surroundings.tile.frame();
    if (!tile)
        return false;
    // At the top of a screen most of a flame would be invisible.
    const double rise = kIconTop / 2.0 * tile->width / CauldronArt::kWidth;
    const DeskRect above{tile->x + tile->width / 2, tile->maxY() + rise, 1, 1};
    return std::ranges::any_of(m_surroundings.screens.frames(),
                               [&](const DeskRect& screen) { return screen.intersects(above); });
}

double DockIconAnimator::startingLift() const {
    return m_run ? 0 : CauldronArt::hoverLift(m_idleTick, CauldronArt::current());
}

PixelCanvas DockIconAnimator::iconOf(const PixelCanvas& scene) {
    return scene.crop(0, kIconTop, CauldronArt::kWidth, CauldronArt::kWidth);
}

int DockIconAnimator::swarmFrames(std::size_t icons) {
    const auto count = static_cast<double>(std::clamp<std::size_t>(icons, 1, kSwarmIcons));
    // The product is exact in hundredths of a second, so that rounding up adds no frame.
    return static_cast<int>(std::ceil(((count - 1) * 30 + 155) * kFps / 100));
}

void DockIconAnimator::tick() {
    std::visit([this](const auto& drop) { draw(drop, *m_run); }, m_run->drop);
    if (++m_run->frame >= m_run->frames)
        next();
}

void DockIconAnimator::draw(const Burn& burn, const Run& run) {
    const double t = BurnCurve::moment(run.frame);
    const std::uint64_t seed = BurnCurve::frameSeed(run.seed, t);
    const double full = burn.full ? BurnCurve::kFullHeight : BurnCurve::kTileHeight;
    const CauldronArt::Frame frame = CauldronArt::burn({.t = t,
                                                        .height = BurnCurve::height(t, full, seed),
                                                        .simmer = BurnCurve::simmers(t),
                                                        .icon = burn.icon,
                                                        .seed = seed,
                                                        .splitAtPool = burn.full,
                                                        .lift = run.lift,
                                                        .skin = CauldronArt::current()});
    showIcon(frame.scene);
    if (burn.full)
        followTile(frame.flame.crop(0, 0, CauldronArt::kWidth, kFlameRows), false);
}

void DockIconAnimator::draw(const Swarm& swarm, const Run& run) {
    const CauldronArt::SwarmFrame frame = CauldronArt::swarm(
        run.frame / kFps, swarm.icons, run.seed, run.lift, CauldronArt::current());
    showIcon(frame.scene);
    followTile(frame.flame, true);
}

void DockIconAnimator::followTile(const PixelCanvas& flame, bool wide) {
    const std::optional<DeskRect> tile = m_surroundings.tile.frame();
    const std::vector<DeskRect> screens = m_surroundings.screens.frames();
    DeskRect screenUnion;
    for (const DeskRect& screen : screens)
        screenUnion = screenUnion.width == 0 ? screen : screenUnion.united(screen);
    if (!tile || !tile->intersects(screenUnion)) {
        orderOut();
        return;
    }
    const double unit = tile->width / CauldronArt::kWidth;
    const double margin = wide ? CauldronArt::kSwarmMargin * unit : 0;
    const int below = wide ? CauldronArt::kWidth : kFlameRows - kIconTop;
    overlay().showFlame(flame, {.x = tile->x - margin,
                                .y = tile->maxY() - unit * (m_nudgeRows + below),
                                .width = tile->width + 2 * margin,
                                .height = unit * (wide ? CauldronArt::kHeight : kFlameRows)});
}

FlameWindow& DockIconAnimator::overlay() {
    if (!m_overlay)
        m_overlay = m_surroundings.makeOverlay();
    return *m_overlay;
}

void DockIconAnimator::orderOut() {
    if (m_overlay)
        m_overlay->orderOut();
}

void DockIconAnimator::startIdle() {
    m_idling = true;
    startIdleTimer();
    idle();
}

void DockIconAnimator::idle() {
    if (m_run)
        return;
    ++m_idleTick;
    showIcon(CauldronArt::idle(m_idleTick, false, 0, CauldronArt::current()));
}

void DockIconAnimator::showIcon(const PixelCanvas& scene) {
    PixelCanvas icon = iconOf(scene);
    if (m_shown == icon)
        return;
    m_surroundings.icon.setIcon(icon);
    m_shown = std::move(icon);
}

void DockIconAnimator::setSuspended(bool suspended) {
    m_suspended = suspended;
    if (suspended) {
        m_timer->stop();
        m_idleTimer->stop();
        orderOut();
        return;
    }
    if (m_run)
        startTimer();
    if (m_idling)
        startIdleTimer();
}

void DockIconAnimator::setStill(bool still) {
    m_still = still;
    if (still) {
        m_queue.clear();
        next();
        m_idleTimer->stop();
        if (m_idling)
            idle();
    } else if (m_idling) {
        startIdleTimer();
    }
}

void DockIconAnimator::startTimer() {
    if (!m_suspended)
        m_timer->start(FrameTimer::Interval(1 / kFps), [this] { tick(); });
}

void DockIconAnimator::startIdleTimer() {
    if (!m_suspended && !m_still)
        m_idleTimer->start(FrameTimer::Interval(1 / kIdleFps), [this] { idle(); });
}

} // namespace vexmoor
