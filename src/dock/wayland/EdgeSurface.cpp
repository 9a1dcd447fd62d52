#include "EdgeSurface.h"

#include <QPainter>

#include <algorithm>

namespace vexmoor::wayland {
namespace {

using Edge = TilePlace::Edge;

/// Returns the corner nearest to the tile along its edge.
LayerSurface::Corner cornerOf(const TilePlace& place) {
    constexpr double kMiddle = 0.5;
    const bool isFar = place.fraction > kMiddle;
    switch (place.edge) {
    case Edge::bottom:
        return {.right = isFar, .bottom = true};
    case Edge::top:
        return {.right = isFar, .bottom = false};
    case Edge::left:
        return {.right = false, .bottom = isFar};
    case Edge::right:
        return {.right = true, .bottom = isFar};
    }
    return {};
}

} // namespace

PhysicalScreen screenOf(const WaylandOutput& output, QSize area) {
    const QRect whole = output.logical();
    return {.name = output.name(),
            .geometry = whole,
            .available = {whole.topLeft(), area.isEmpty() ? whole.size() : area},
            .ratio = output.scale()};
}

std::vector<PhysicalScreen> screensOf(const WaylandConnection& connection) {
    std::vector<PhysicalScreen> screens;
    for (const WaylandOutput* output : connection.outputs())
        screens.push_back(screenOf(*output));
    return screens;
}

QRectF EdgeSurface::Geometry::frame() const {
    const QPointF topLeft =
        QPointF(output->logical().topLeft() + rect.topLeft()) + QPointF(picture) / grid.scale();
    const double side = TilePicture::kSide * cell / grid.scale();
    return {topLeft, QSizeF(side, side)};
}

EdgeSurface::EdgeSurface(WaylandConnection& connection, LayerSurface::Input input,
                         std::function<void()> changed)
    : m_connection(connection), m_input(input), m_changed(std::move(changed)) {}

void EdgeSurface::stand(const TilePlace& place) {
    m_place = place;
    outputsChanged();
    layOut();
}

void EdgeSurface::show(const TilePicture& picture) {
    m_picture = picture;
    draw();
}

void EdgeSurface::outputsChanged() {
    const auto outputs = m_connection.outputs();
    const QString name = QString::fromStdString(m_place.screen);
    const auto own = std::ranges::find(outputs, name, &WaylandOutput::name);
    const WaylandOutput* wanted = nullptr;
    if (!outputs.empty())
        wanted = own != outputs.end() ? *own : outputs.front();
    const bool isAsBefore = m_surface && wanted == m_output && wanted != nullptr &&
                            wanted->logical() == m_outputRect &&
                            (m_connection.scales() != nullptr || wanted->scale() == m_scale);
    m_output = wanted;
    if (!isAsBefore)
        rebuild();
}

void EdgeSurface::leave(const WaylandOutput* output) {
    if (output != m_output)
        return;
    m_surface.reset();
    ++m_generation;
    m_output = nullptr;
    m_changed();
}

void EdgeSurface::rebuild() {
    m_surface.reset();
    ++m_generation;
    m_image = QImage();
    if (m_output != nullptr) {
        m_outputRect = m_output->logical();
        m_scale = m_output->scale();
        m_surface = std::make_unique<LayerSurface>(
            m_connection, m_output->proxy(), m_input, LayerSurface::Area::withoutPanels,
            LayerSurface::Events{.ready =
                                     [this](QSize area) {
                                         m_area = area;
                                         layOut();
                                         m_changed();
                                     },
                                 .closed = // the removal of the output is reported too
                                 [this] {
                                     QMetaObject::invokeMethod(
                                         this, [this] { leave(m_output); }, Qt::QueuedConnection);
                                 },
                                 .scaled =
                                     [this](double scale) {
                                         m_scale = scale;
                                         layOut();
                                         m_changed();
                                     }});
    }
    m_changed();
}

void EdgeSurface::layOut() {
    if (!m_surface || !m_surface->isReady())
        return;
    const PixelGrid grid(m_scale);
    const int cell = TilePicture::cellAt(m_scale);
    const int pixels = TilePicture::kSide * cell;
    const int side = grid.around({0, 0, pixels, pixels}).width();
    QRect rect = m_place.rect(screenOf(*m_output, m_area), side);
    rect.translate(-m_outputRect.topLeft());
    // Along the edge, align the surface to the grid. Across, keep it at the edge.
    const bool isUpright = m_place.edge == Edge::left || m_place.edge == Edge::right;
    if (isUpright)
        rect.moveTop(grid.lineBefore(rect.top()));
    else
        rect.moveLeft(grid.lineBefore(rect.left()));
    const QSize rest = grid.physical(rect).size() - QSize(pixels, pixels);
    m_geometry = {.output = m_output,
                  .rect = rect,
                  .corner = cornerOf(m_place),
                  .picture = {m_place.edge == Edge::right ? rest.width() : 0,
                              m_place.edge == Edge::bottom ? rest.height() : 0},
                  .cell = cell,
                  .grid = grid};
    m_surface->place(rect, m_geometry.corner);
    m_image = QImage();
    draw();
}

void EdgeSurface::draw() {
    if (!m_surface || !m_surface->isReady())
        return;
    QImage image(m_geometry.grid.physical(m_geometry.rect).size(),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter(&image).drawImage(m_geometry.picture, m_picture.image(m_geometry.cell));
    if (image == m_image)
        return;
    m_surface->show(image);
    m_image = std::move(image);
}

std::optional<EdgeSurface::Geometry> EdgeSurface::geometry() const {
    return m_surface && m_surface->isReady() ? std::optional(m_geometry) : std::nullopt;
}

} // namespace vexmoor::wayland
