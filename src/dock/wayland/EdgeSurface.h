#pragma once

#include "LayerSurface.h"
#include "PixelGrid.h"

#include "dock/TilePicture.h"
#include "dock/TilePlace.h"

#include <functional>
#include <memory>
#include <optional>

namespace vexmoor::wayland {

/// A surface at an edge of an output that shows the tile's picture. Main thread; the connection
/// must outlive it.
class EdgeSurface : private QObject {
  public:
    using Corner = LayerSurface::Corner;

    /// The position of the surface and of the picture in it.
    struct Geometry {
        const WaylandOutput* output = nullptr;
        QRect rect; ///< the surface, relative to the output, in logical pixels
        Corner corner;
        QPoint picture; ///< offset in the surface, in physical pixels
        int cell = 1;   ///< physical pixels per canvas pixel
        PixelGrid grid{1};

        /// Returns the picture's rectangle in the compositor's space, in logical pixels.
        [[nodiscard]] QRectF frame() const;
    };

    /// `changed` is called when the surface appears, moves or disappears.
    EdgeSurface(WaylandConnection& connection, LayerSurface::Input input,
                std::function<void()> changed);

    /// Moves the surface to the place; to the first output if the place's output does not exist.
    void stand(const TilePlace& place);
    void show(const TilePicture& picture);

    /// Must be called when the outputs change.
    void outputsChanged();
    /// Destroys the surface if it is on an output that is about to be removed.
    void leave(const WaylandOutput* output);

    /// Returns nullopt while the surface is not shown.
    [[nodiscard]] std::optional<Geometry> geometry() const;
    /// True if no panel reduces the area of the output.
    [[nodiscard]] bool fillsOutput() const { return m_area == m_outputRect.size(); }
    /// Returns a number that changes whenever the surface is created or destroyed.
    [[nodiscard]] int generation() const { return m_generation; }
    [[nodiscard]] wl_surface* surface() const { return m_surface ? m_surface->surface() : nullptr; }

  private:
    void rebuild();
    void layOut();
    void draw();

    WaylandConnection& m_connection;
    LayerSurface::Input m_input;
    std::function<void()> m_changed;
    TilePlace m_place;
    TilePicture m_picture;
    std::unique_ptr<LayerSurface> m_surface;
    const WaylandOutput* m_output = nullptr;
    QRect m_outputRect; ///< when the surface was created
    double m_scale = 1;
    QSize m_area;
    Geometry m_geometry;
    QImage m_image; ///< the last picture shown
    int m_generation = 0;
};

/// Converts an output for TilePlace, in logical pixels. `area` is the size without panels.
PhysicalScreen screenOf(const WaylandOutput& output, QSize area = {});
std::vector<PhysicalScreen> screensOf(const WaylandConnection& connection);

} // namespace vexmoor::wayland
