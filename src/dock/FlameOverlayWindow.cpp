#include "FlameOverlayWindow.h"

#include "NativeWindow.h"
#include "PhysicalGeometry.h"
#include "PixelImage.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

namespace vexmoor {
namespace {

// Bypass the window manager: several block clicks through windows that they manage.
constexpr Qt::WindowFlags kFlags = Qt::BypassWindowManagerHint | Qt::FramelessWindowHint |
                                   Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus |
                                   Qt::Tool;

} // namespace

FlameOverlayWindow::FlameOverlayWindow(const Compositor& compositor)
    : QWidget(nullptr, kFlags), m_compositor(compositor) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    connect(&compositor, &Compositor::runningChanged, this, &FlameOverlayWindow::updateShape);
}

void FlameOverlayWindow::showFlame(const PixelCanvas& flame, const DeskRect& frame) {
    // Flips y with the primary screen's height that DeskRect used: Qt's, in whole points.
    const QRectF points = windowRect(frame, QGuiApplication::primaryScreen()->geometry());
    const std::vector<PhysicalScreen> screens = PhysicalScreen::all();
    // Use the lowest points, which are the tile's.
    const PhysicalScreen& screen =
        nearestScreen(screens, QPointF(points.center().x(), points.bottom() - 1).toPoint());
    const QRect physical = screen.physical(points);
    if (native::isFullscreenAt(physical)) {
        hide();
        return;
    }
    QImage image = enlarged(flame, physical.size());
    image.setDevicePixelRatio(screen.ratio);
    if (physical != m_place)
        place(physical, points);
    if (image != m_image) {
        m_image = std::move(image);
        updateShape();
        update();
    }
    if (!isVisible()) {
        native::ignoreInput(winId());
        show();
        native::setGeometry(winId(),
                            m_place); // showing the window rounds its geometry to Qt's points
    }
    native::raise(winId()); // another window may have covered it
}

/// Qt supports whole points only; the exact pixels are set natively.
void FlameOverlayWindow::place(const QRect& physical, const QRectF& points) {
    m_place = physical;
    setGeometry(points.toAlignedRect());
    native::setGeometry(winId(), physical);
}

void FlameOverlayWindow::updateShape() {
    native::setShape(winId(),
                     m_compositor.isRunning() ? std::nullopt : std::optional(opaqueShape(m_image)));
}

void FlameOverlayWindow::orderOut() {
    hide();
}

void FlameOverlayWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QPointF(0, 0), m_image);
}

} // namespace vexmoor
