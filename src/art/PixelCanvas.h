#pragma once

#include "skins/Pixel.h"

#include <QByteArray>
#include <QImage>

#include <functional>
#include <optional>
#include <vector>

class QPainter;

namespace vexmoor {

/// A small raster of straight-alpha pixels, row 0 at the top, with a list of images drawn over the
/// pixels at output time at a finer resolution than the grid. A value: copying copies the pixels.
/// Needs no QGuiApplication; any one thread at a time.
class PixelCanvas {
  public:
    /// An image laid over a canvas rectangle.
    struct Overlay {
        QImage image;
        int x = 0; ///< top-left corner and size, in canvas pixels
        int y = 0;
        int w = 0;
        int h = 0;
        int detail = 1; ///< bitmap pixels a canvas pixel is divided into (smooth overlays)
        /// Which pixels of the rendered bitmap to use; empty means all. Column and row are those
        /// of the bitmap (0 to w or h times detail), so moving the overlay does not move the mask.
        std::function<bool(int column, int row)> keep = {};
        double yOffset = 0; ///< shift in canvas pixels, rounded to whole output pixels
        bool crisp = false; ///< nearest neighbour straight from the image; no angle, no mask
        double xOffset = 0;
        double angle = 0;   ///< radians, counter-clockwise as seen, about the centre
        double opacity = 1; ///< 0 to 1

        /// Whether both draw the same. Masked overlays equal nothing: a mask cannot be compared.
        bool operator==(const Overlay& other) const;
    };

    /// A clear canvas. Sizes are not negative.
    PixelCanvas(int width, int height);

    [[nodiscard]] int width() const { return m_width; }
    [[nodiscard]] int height() const { return m_height; }
    [[nodiscard]] const std::vector<Pixel>& pixels() const { return m_pixels; }
    [[nodiscard]] const std::vector<Overlay>& overlays() const { return m_overlays; }

    /// The pixel there; clear outside the canvas.
    [[nodiscard]] Pixel at(int x, int y) const;
    /// Replaces the pixel there; ignored outside the canvas.
    void set(int x, int y, Pixel pixel);
    /// Composites a pixel over the one there; ignored outside the canvas.
    void blend(int x, int y, Pixel pixel);

    /// Appends an overlay, drawn after those already there.
    void addOverlay(Overlay overlay) { m_overlays.push_back(std::move(overlay)); }
    void removeOverlays() { m_overlays.clear(); }

    /// Composites a canvas over this one, its top-left corner at (atX, y), and takes over copies
    /// of its overlays, after this canvas's own.
    void merge(const PixelCanvas& other, int atX, int y);
    /// A rectangle of this canvas, clear where it lies outside, with the overlays that touch it.
    [[nodiscard]] PixelCanvas crop(int x, int y, int width, int height) const;

    /// The pixels alone at canvas resolution, premultiplied.
    [[nodiscard]] QImage bitmapRep() const;
    /// The picture with every canvas pixel a block of `scale` by `scale`, premultiplied. Null for
    /// a scale below 1, an empty canvas, or when memory runs out.
    [[nodiscard]] QImage nsImage(int scale) const;
    /// The same picture as PNG; nothing where nsImage is null or the encoder fails.
    [[nodiscard]] std::optional<QByteArray> pngData(int scale) const;
    /// Draws the overlays alone, the canvas's top-left corner at the painter's origin.
    void drawOverlays(QPainter& painter, int scale) const;

    /// Whether both give the same picture: a cheap way to see that nothing needs repainting.
    /// May say no for equal pictures when overlays are masked.
    bool operator==(const PixelCanvas&) const = default;

  private:
    [[nodiscard]] bool contains(int x, int y) const {
        return x >= 0 && y >= 0 && x < m_width && y < m_height;
    }
    [[nodiscard]] std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) +
               static_cast<std::size_t>(x);
    }

    int m_width;
    int m_height;
    std::vector<Pixel> m_pixels;
    std::vector<Overlay> m_overlays;
};

} // namespace vexmoor
