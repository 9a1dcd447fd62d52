#pragma once

#include "LayerSurface.h"
#include "PixelGrid.h"

#include "dock/TilePicture.h"
#include "dock/TilePlace.h"

#include <functional>
#include <memory>
#include <optional>

namespace vexmoor::wayland {

/// The tile's picture on a surface at an edge of an output. Main thread; the connection must
/// outlive it.
class EdgeSurface : private QObject {
  public:
    using Corner = LayerSurface::Corner;

    /// Where the surface and the picture in it are.
    struct Geometry {
        const WaylandOutput* output = nullptr;
        QRect rect; ///< the surface in the output's area, in logical pixels
        Corner corner;
        QPoint picture; ///< from the surface's corner, in physical pixels
        int cell = 1;   ///< physical pixels a canvas pixel
        PixelGrid grid{1};

        /// The picture's rectangle among the outputs, in logical pixels.
        [[nodiscard]] QRectF frame() const;
    };

    /// `changed` is called when the surface appeared, moved or vanished.
    EdgeSurface(WaylandConnection& connection, LayerSurface::Input input,
                std::function<void()> changed);

    /// Puts it there; on the first output if there is none of that name.
    void stand(const TilePlace& place);
    void show(const TilePicture& picture);

    /// The outputs are others now.
    void outputsChanged();
    /// Leaves an output that is about to go.
    void leave(const WaylandOutput* output);

    /// Nothing while it is not shown.
    [[nodiscard]] std::optional<Geometry> geometry() const;
    /// Whether no panels make the area smaller than the output.
    [[nodiscard]] bool fillsOutput() const { return m_area == m_outputRect.size(); }
    /// Another number for each surface that it had.
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
    QRect m_outputRect; ///< as it was when the surface was made
    double m_scale = 1;
    QSize m_area;
    Geometry m_geometry;
    QImage m_image; ///< as last shown
    int m_generation = 0;
};

/// The output in the words of TilePlace, in logical pixels; `area` is its part without panels.
PhysicalScreen screenOf(const WaylandOutput& output, QSize area = {});
std::vector<PhysicalScreen> screensOf(const WaylandConnection& connection);

} // namespace vexmoor::wayland
