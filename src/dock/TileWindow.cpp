#include "TileWindow.h"

#include "DroppedUris.h"
#include "NativeWindow.h"
#include "PixelImage.h"
#include "TileAccessible.h"
#include "TileBadge.h"

#include "art/CauldronArt.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vexmoor {
namespace {

constexpr int kSide = CauldronArt::kWidth; ///< in canvas pixels
constexpr double kCellPoints = 3;
constexpr const char* kUriList = "text/uri-list";

Qt::WindowFlags flagsFor(TileWindow::Manager manager) {
    const Qt::WindowFlags flags =
        Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::WindowStaysOnTopHint;
    return manager == TileWindow::Manager::nobody ? flags | Qt::BypassWindowManagerHint : flags;
}

QColor acidColour() {
    const Pixel acid = CauldronArt::current().acid;
    return {acid.r, acid.g, acid.b};
}

} // namespace

TileWindow::TileWindow(UserDefaults& defaults, const Compositor& compositor, Manager manager)
    : m_defaults(defaults), m_compositor(compositor) {
    setWindowFlags(flagsFor(manager));
    setWindowTitle(QStringLiteral("Vexmoor"));
    TileAccessible::install();
    setAccessibleName(QStringLiteral("Vexmoor"));
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setAcceptDrops(true);
    if (const auto stored = m_defaults.string(kPlaceKey))
        m_place = TilePlace::fromText(*stored).value_or(TilePlace{});
    connect(&compositor, &Compositor::runningChanged, this, &TileWindow::updateShape);
    watchScreens();
    place();
}

void TileWindow::watchScreens() {
    const auto watch = [this](QScreen* screen) {
        // Queued: the panels around a screen change after it.
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
    m_cell = std::max(1, static_cast<int>(std::lround(kCellPoints * m_ratio)));
    const QRect wanted = m_place.rect(screen, kSide * m_cell);
    // Qt knows whole points only; the window system then gets the exact pixels.
    setGeometry(screen.points(wanted).toAlignedRect());
    m_physical = wanted;
    native::setGeometry(winId(), wanted);
    redraw();
}

std::optional<QRectF> TileWindow::frame() const {
    const std::vector<PhysicalScreen> screens = PhysicalScreen::all();
    if (!isVisible() || screens.empty())
        return std::nullopt;
    // Asked anew: Qt does not tell of every move that the window manager makes, least where a ratio
    // is broken and both places are the same point.
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

/// Each showing has a window of its own: of a hidden one the window manager takes its properties
/// away, at a time that nobody knows.
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
    m_icon = icon;
    redraw();
}

void TileWindow::setBadged(bool badged) {
    if (m_badged == badged)
        return;
    m_badged = badged;
    setAccessibleDescription(badged ? tr("Dissolving forever") : QString());
    redraw();
}

void TileWindow::setHovered(bool hovered) {
    if (m_hovered == hovered)
        return;
    m_hovered = hovered;
    redraw();
}

void TileWindow::redraw() {
    QImage image = picture();
    if (image == m_image)
        return;
    m_image = std::move(image);
    updateShape();
    update();
}

QImage TileWindow::picture() const {
    const QSize size(kSide * m_cell, kSide * m_cell);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (m_icon)
        image = enlarged(*m_icon, size);
    if (m_hovered)
        image = ringed(image, m_cell, acidColour());
    if (m_badged) {
        const QImage badge = tileBadge().nsImage(m_cell);
        QPainter(&image).drawImage(image.width() - badge.width(), 0, badge);
    }
    image.setDevicePixelRatio(m_ratio);
    return image;
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
        m_defaults.assign(kPlaceKey, m_place.text());
    else if (rect().contains(event->position().toPoint()))
        click();
}

void TileWindow::dragEnterEvent(QDragEnterEvent* event) {
    // What comes from a window of this program lies in the Bin already.
    if (event->source() != nullptr || !event->mimeData()->hasFormat(QLatin1String(kUriList)))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    setHovered(true);
}

void TileWindow::dragLeaveEvent(QDragLeaveEvent*) {
    setHovered(false);
}

void TileWindow::dropEvent(QDropEvent* event) {
    setHovered(false);
    event->setDropAction(Qt::CopyAction);
    event->accept();
    const QByteArray list = event->mimeData()->data(QLatin1String(kUriList));
    const DroppedUris uris = DroppedUris::fromList(list.toStdString());
    if (!uris.items.empty())
        emit dropped(uris.items);
    if (uris.items.empty() || uris.others > 0)
        emit refused(!uris.items.empty());
}

} // namespace vexmoor
