#include "TileWindow.h"

#include "NativeWindow.h"
#include "PixelImage.h"
#include "Tile.h"
#include "TileAccessible.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <utility>

namespace vexmoor {
namespace {

constexpr const char* kUriList = "text/uri-list";

Qt::WindowFlags flagsFor(TileHandling::Manager manager) {
    const Qt::WindowFlags flags = Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
    switch (manager) {
    case TileHandling::Manager::windowManager:
        break;
    case TileHandling::Manager::windowManagerWithFocus:
        return flags;
    case TileHandling::Manager::none:
        return flags | Qt::WindowDoesNotAcceptFocus | Qt::BypassWindowManagerHint;
    }
    return flags | Qt::WindowDoesNotAcceptFocus;
}

} // namespace

TileWindow::TileWindow(UserDefaults& defaults, const Compositor& compositor, TileHandling handling)
    : m_defaults(defaults), m_compositor(compositor), m_readsDragsEarly(handling.readsDragsEarly) {
    setWindowFlags(flagsFor(handling.manager));
    setWindowTitle(QStringLiteral("Vexmoor"));
    TileAccessible::install();
    setAccessibleName(QStringLiteral("Vexmoor"));
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setAcceptDrops(true);
    if (const auto stored = m_defaults.string(Tile::kPlaceKey))
        m_place = TilePlace::fromText(*stored).value_or(TilePlace{});
    connect(&compositor, &Compositor::runningChanged, this, &TileWindow::updateShape);
    watchScreens();
    place();
}

void TileWindow::watchScreens() {
    const auto watch = [this](QScreen* screen) {
        // Queued, because the panels' areas change after the screen.
        connect(screen, &QScreen::geometryChanged, this, &TileWindow::place, Qt::QueuedConnection);
        connect(screen, &QScreen::availableGeometryChanged, this, &TileWindow::place,
                Qt::QueuedConnection);
    };
    for (QScreen* screen : QGuiApplication::screens())
        watch(screen);
    connect(qApp, &QGuiApplication::screenAdded, this, [this, watch](QScreen* screen) {
        watch(screen);
        QMetaObject::invokeMethod(this, &TileWindow::place, Qt::QueuedConnection);
    });
    connect(qApp, &QGuiApplication::screenRemoved, this, &TileWindow::place, Qt::QueuedConnection);
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, &TileWindow::place,
            Qt::QueuedConnection);
}

void TileWindow::place() {
    const std::vector<PhysicalScreen> screens = PhysicalScreen::all();
    if (screens.empty())
        return;
    const PhysicalScreen& screen = m_place.screenOf(screens);
    m_ratio = screen.ratio;
    m_cell = TilePicture::cellAt(m_ratio);
    const QRect wanted = m_place.rect(screen, TilePicture::kSide * m_cell);
    // Qt supports whole points only; the exact pixels are set natively.
    setGeometry(screen.points(wanted).toAlignedRect());
    m_physical = wanted;
    native::setGeometry(winId(), wanted);
    redraw();
}

std::optional<QRectF> TileWindow::frame() const {
    const std::vector<PhysicalScreen> screens = PhysicalScreen::all();
    if (!isVisible() || screens.empty())
        return std::nullopt;
    // Query X11: Qt misses some moves by the window manager, above all with fractional scaling,
    // where both positions can be the same point.
    const QRect physical = native::geometry(internalWinId()).value_or(m_physical);
    return nearestScreen(screens, physical.center()).points(physical);
}

void TileWindow::moveEvent(QMoveEvent*) {
    readGeometry();
}

void TileWindow::resizeEvent(QResizeEvent*) {
    readGeometry();
}

void TileWindow::readGeometry() {
    if (isVisible())
        m_physical = native::geometry(winId()).value_or(m_physical);
}

/// Each show creates a new native window: the window manager removes a hidden window's properties
/// asynchronously.
void TileWindow::setVisible(bool visible) {
    const bool wasVisible = isVisible();
    if (visible && !wasVisible) {
        place();
        native::makeDock(winId());
        updateShape();
    }
    QAbstractButton::setVisible(visible);
    if (!visible)
        destroy();
    if (isVisible() != wasVisible)
        emit shownChanged(isVisible());
}

void TileWindow::setIcon(const PixelCanvas& icon) {
    m_picture.icon = icon;
    redraw();
}

void TileWindow::setBadged(bool badged) {
    if (m_picture.isBadged == badged)
        return;
    m_picture.isBadged = badged;
    setAccessibleDescription(badged ? tr("Dissolving forever") : QString());
    redraw();
}

void TileWindow::setHovered(bool hovered) {
    if (m_picture.isHovered == hovered)
        return;
    m_picture.isHovered = hovered;
    redraw();
}

void TileWindow::redraw() {
    QImage image = m_picture.image(m_cell);
    image.setDevicePixelRatio(m_ratio);
    if (image == m_image)
        return;
    m_image = std::move(image);
    updateShape();
    update();
}

void TileWindow::updateShape() {
    if (!internalWinId())
        return;
    native::setShape(winId(),
                     m_compositor.isRunning() ? std::nullopt : std::optional(opaqueShape(m_image)));
}

void TileWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QPointF(0, 0), m_image);
}

void TileWindow::requestMenu() {
    emit menuRequested(mapToGlobal(rect().center()));
}

void TileWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton)
        emit menuRequested(event->globalPosition().toPoint());
    if (event->button() == Qt::LeftButton) {
        m_grabbedAt = event->position().toPoint();
        m_pressedAt = event->globalPosition().toPoint();
        setDown(true);
    }
}

void TileWindow::mouseMoveEvent(QMouseEvent* event) {
    if (!m_grabbedAt)
        return;
    const QPoint pointer = event->globalPosition().toPoint();
    if (!m_moving && (pointer - m_pressedAt).manhattanLength() < QApplication::startDragDistance())
        return;
    m_moving = true;
    setDown(false);
    const std::vector<PhysicalScreen> screens = PhysicalScreen::all();
    const QRectF wanted(pointer - *m_grabbedAt, QSizeF(m_physical.size()) / m_ratio);
    const QScreen* const under = QGuiApplication::screenAt(pointer);
    const PhysicalScreen& screen = m_place.screenOf(screens);
    const QRect physical = (under ? PhysicalScreen::of(*under) : screen).physical(wanted);
    m_place = TilePlace::nearest(physical, screens);
    place();
}

void TileWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !m_grabbedAt)
        return;
    m_grabbedAt.reset();
    setDown(false);
    if (std::exchange(m_moving, false))
        m_defaults.assign(Tile::kPlaceKey, m_place.text());
    else if (rect().contains(event->position().toPoint()))
        click();
}

void TileWindow::dragEnterEvent(QDragEnterEvent* event) {
    // Ignore drags from our own windows; their items are already in the Bin.
    if (event->source() != nullptr || !event->mimeData()->hasFormat(QLatin1String(kUriList)))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    m_draggedList =
        m_readsDragsEarly ? event->mimeData()->data(QLatin1String(kUriList)) : QByteArray();
    setHovered(true);
}

void TileWindow::dragLeaveEvent(QDragLeaveEvent*) {
    m_draggedList.clear();
    setHovered(false);
}

void TileWindow::dropEvent(QDropEvent* event) {
    setHovered(false);
    event->setDropAction(Qt::CopyAction);
    event->accept();
    QByteArray list = std::exchange(m_draggedList, {});
    if (list.isEmpty())
        list = event->mimeData()->data(QLatin1String(kUriList));
    emit listDropped(list);
}

} // namespace vexmoor
