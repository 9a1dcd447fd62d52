#include "LayerTile.h"

#include "dock/PhysicalGeometry.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <utility>

namespace vexmoor::wayland {
namespace {

QRectF unionOf(const std::vector<PhysicalScreen>& screens) {
    QRectF all;
    for (const PhysicalScreen& screen : screens)
        all |= screen.geometry;
    return all;
}

/// Converts a position to Qt's coordinates. The X server has the same arrangement of outputs, but
/// scaled up on some compositors.
QPoint pointOfQt(QPointF logical, const WaylandConnection& connection) {
    const std::vector<PhysicalScreen> own = PhysicalScreen::all();
    const QRectF outputs = unionOf(screensOf(connection));
    const QRectF server = unionOf(own);
    const double ratio = outputs.width() > 0 ? server.width() / outputs.width() : 1;
    const QPoint physical = ((logical - outputs.topLeft()) * ratio + server.topLeft()).toPoint();
    return nearestScreen(own, physical).points({physical, QSize(1, 1)}).topLeft().toPoint();
}

} // namespace

LayerTile::LayerTile(UserDefaults& defaults, std::unique_ptr<WaylandConnection> connection)
    : m_defaults(defaults), m_connection(std::move(connection)), m_screens(*m_connection),
      m_pointer(*m_connection), m_drops(*m_connection), m_curtain(*m_connection, m_pointer),
      m_tile(*m_connection, LayerSurface::Input::all, [this] { followGeometry(); }) {
    if (const auto stored = m_defaults.string(kPlaceKey))
        m_place = TilePlace::fromText(*stored).value_or(TilePlace{});
    connect(m_connection.get(), &WaylandConnection::lost, this, &LayerTile::endConnection);
    connect(&m_pointer, &Pointer::entered, this, [this](wl_surface* surface, QPointF at) {
        m_hasPointer = surface == m_tile.surface();
        m_pointerAt = at;
    });
    connect(&m_pointer, &Pointer::left, this, [this] { m_hasPointer = false; });
    connect(&m_pointer, &Pointer::moved, this, &LayerTile::move);
    connect(&m_pointer, &Pointer::pressed, this, &LayerTile::press);
    connect(&m_pointer, &Pointer::released, this, &LayerTile::release);
    connect(&m_curtain, &MenuCurtain::lowered, this, &LayerTile::openMenu);
    connect(&m_drops, &DropTarget::hovered, this, [this](wl_surface* surface) {
        m_picture.isHovered = surface != nullptr && surface == m_tile.surface();
        redraw();
    });
    connect(&m_drops, &DropTarget::dropped, this,
            [this](const std::optional<QByteArray>& list) { report(list.value_or(QByteArray())); });
    m_connection->listen();
}

LayerTile::~LayerTile() = default;

void LayerTile::show() {
    connect(m_connection.get(), &WaylandConnection::outputsChanged, this,
            [this] { m_tile.outputsChanged(); });
    connect(m_connection.get(), &WaylandConnection::outputRemoved, this,
            [this](const WaylandOutput* output) {
                m_dragged.reset();
                m_tile.leave(output);
            });
    m_tile.stand(m_place);
}

void LayerTile::followGeometry() {
    const auto geometry = m_tile.geometry();
    if (geometry)
        m_pointer.setScale(geometry->grid.scale());
    if (std::exchange(m_wasVisible, geometry.has_value()) != geometry.has_value())
        emit shownChanged(geometry.has_value());
}

std::optional<QRectF> LayerTile::frame() const {
    const auto geometry = m_tile.geometry();
    if (!geometry)
        return std::nullopt;
    const QPoint primary = m_connection->outputs().front()->logical().topLeft();
    return geometry->frame().translated(QGuiApplication::primaryScreen()->geometry().topLeft() -
                                        primary);
}

std::unique_ptr<FlameWindow> LayerTile::makeFlames() {
    return std::make_unique<LayerFlames>(*m_connection, m_tile);
}

/// Opens the menu beside the tile: some compositors show X11 windows below the tile.
void LayerTile::openMenu(QPointF at) {
    emit menuRequested(pointOfQt(at, *m_connection));
    QWidget* const menu = QApplication::activePopupWidget();
    const auto geometry = m_tile.geometry();
    if (menu == nullptr || !geometry)
        return;
    const QRectF frame = geometry->frame();
    const QRect tile(pointOfQt(frame.topLeft(), *m_connection),
                     pointOfQt(frame.bottomRight(), *m_connection));
    QRect place = menu->geometry();
    switch (m_place.edge) {
    case TilePlace::Edge::bottom:
        place.moveBottom(tile.top() - 1);
        break;
    case TilePlace::Edge::top:
        place.moveTop(tile.bottom() + 1);
        break;
    case TilePlace::Edge::left:
        place.moveLeft(tile.right() + 1);
        break;
    case TilePlace::Edge::right:
        place.moveRight(tile.left() - 1);
        break;
    }
    menu->move(place.topLeft());
}

void LayerTile::setIcon(const PixelCanvas& icon) {
    m_picture.icon = icon;
    redraw();
}

void LayerTile::setBadged(bool badged) {
    m_picture.isBadged = badged;
    redraw();
}

void LayerTile::redraw() {
    if (m_dragged)
        m_dragged->show(m_picture);
    m_tile.show(m_dragged ? TilePicture{} : m_picture);
}

QPointF LayerTile::global(QPointF at) const {
    const auto geometry = m_tile.geometry();
    return geometry ? QPointF(geometry->output->logical().topLeft() + geometry->rect.topLeft()) + at
                    : at;
}

void LayerTile::press(Pointer::Button button) {
    if (!m_hasPointer)
        return;
    if (m_curtain.isLowered())
        m_curtain.press();
    else if (button == Pointer::Button::left)
        m_pressedAt = m_pointerAt;
    else if (button == Pointer::Button::right)
        m_curtain.lower(global(m_pointerAt), m_tile.fillsOutput());
}

void LayerTile::move(QPointF at) {
    m_pointerAt = at;
    if (!m_pressedAt)
        return;
    const bool isFar = (at - *m_pressedAt).manhattanLength() >= QApplication::startDragDistance();
    if (m_dragged || isFar)
        dragTo(at);
}

void LayerTile::dragTo(QPointF at) {
    const auto geometry = m_tile.geometry();
    const auto screens = screensOf(*m_connection);
    if (!geometry || screens.empty())
        return;
    const QPoint corner = global(at - *m_pressedAt).toPoint();
    m_place = TilePlace::nearest({corner, geometry->rect.size()}, screens);
    if (!m_dragged)
        m_dragged = std::make_unique<EdgeSurface>(*m_connection, LayerSurface::Input::none, [] {});
    m_dragged->stand(m_place);
    redraw();
}

void LayerTile::release(Pointer::Button button) {
    if (button != Pointer::Button::left || !m_pressedAt)
        return;
    m_pressedAt.reset();
    const auto geometry = m_tile.geometry();
    if (std::exchange(m_dragged, nullptr)) {
        m_defaults.assign(kPlaceKey, m_place.text());
        m_tile.stand(m_place);
        redraw();
    } else if (geometry && QRectF(QPointF(), QSizeF(geometry->rect.size())).contains(m_pointerAt)) {
        emit clicked();
    }
}

void LayerTile::endConnection(const QString& reason) {
    m_curtain.raise();
    m_dragged.reset();
    if (const auto geometry = m_tile.geometry())
        m_tile.leave(geometry->output);
    emit lost(reason);
}

} // namespace vexmoor::wayland
