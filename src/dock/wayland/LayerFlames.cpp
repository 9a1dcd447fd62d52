#include "LayerFlames.h"

#include "dock/PixelImage.h"

#include <QPainter>

#include <cmath>
#include <utility>

namespace vexmoor::wayland {

struct LayerFlames::Part {
    Part(WaylandConnection& connection, const EdgeSurface& tile)
        : generation(tile.generation()), buffers(connection.shm()),
          surface(wl_compositor_create_surface(connection.compositor())),
          viewport(wp_viewporter_get_viewport(connection.viewporter(), surface.get())),
          place(wl_subcompositor_get_subsurface(connection.subcompositor(), surface.get(),
                                                tile.surface())) {
        wl_subsurface_set_desync(place.get());
        const Owned<wl_region> nothing(wl_compositor_create_region(connection.compositor()));
        wl_surface_set_input_region(surface.get(), nothing.get());
    }

    int generation; ///< of the tile's surface when this was created
    ShmBuffers buffers;
    Owned<wl_surface> surface;
    Owned<wp_viewport> viewport;
    Owned<wl_subsurface> place; // must be destroyed before the surface
    QRect rect;
};

std::vector<DeskRect> LayerScreens::frames() const {
    std::vector<DeskRect> frames;
    for (const WaylandOutput* output : m_connection.outputs())
        frames.push_back(deskFrame(output->logical()));
    return frames;
}

DeskRect LayerScreens::deskFrame(const QRectF& logical) const {
    const auto outputs = m_connection.outputs();
    return deskRect(logical, outputs.empty() ? QRectF() : outputs.front()->logical());
}

/// Positions the flame in whole canvas pixels from the tile's corner, so that both share one pixel
/// grid.
void LayerFlames::showFlame(const PixelCanvas& flame, const DeskRect& frame) {
    const auto tile = m_tile.geometry();
    if (!tile) {
        orderOut();
        return;
    }
    const DeskRect tileFrame = LayerScreens(m_connection).deskFrame(tile->frame());
    const double unit = tileFrame.width / TilePicture::kSide;
    const auto cells = [unit](double length) {
        return static_cast<int>(std::lround(length / unit));
    };
    const QPoint corner =
        tile->picture +
        QPoint(cells(frame.x - tileFrame.x), cells(tileFrame.maxY() - frame.maxY())) * tile->cell;
    const QRect physical(corner, QSize(cells(frame.width), cells(frame.height)) * tile->cell);
    const QRect logical = tile->grid.around(physical);
    const QRect whole = tile->grid.physical(logical);
    QImage image(whole.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter(&image).drawImage(physical.topLeft() - whole.topLeft(),
                               enlarged(flame, physical.size()));
    show(image, logical);
}

/// `rect` is relative to the tile's corner, in logical pixels.
void LayerFlames::show(const QImage& image, const QRect& rect) {
    if (!m_part || m_part->generation != m_tile.generation()) {
        orderOut();
        m_part = std::make_shared<Part>(m_connection, m_tile);
    }
    wl_buffer* const buffer = m_part->buffers.show(image);
    if (buffer == nullptr) // all buffers are in use: skip this frame
        return;
    wl_surface* const surface = m_part->surface.get();
    const bool isMoved = std::exchange(m_part->rect, rect) != rect;
    if (isMoved) {
        wl_subsurface_set_position(m_part->place.get(), rect.x(), rect.y());
        wp_viewport_set_destination(m_part->viewport.get(), rect.width(), rect.height());
    }
    wl_surface_attach(surface, buffer, 0, 0);
    wl_surface_damage_buffer(surface, 0, 0, image.width(), image.height());
    wl_surface_commit(surface);
    if (isMoved) // a subsurface's position takes effect when its parent is committed
        wl_surface_commit(m_tile.surface());
    m_connection.flush();
}

void LayerFlames::orderOut() {
    if (std::exchange(m_part, nullptr))
        m_connection.flush();
}

} // namespace vexmoor::wayland
