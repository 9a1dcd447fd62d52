#pragma once

#include "skins/Pixel.h"

#include <QByteArray>
#include <QImage>

#include <functional>
#include <optional>
#include <vector>

class QPainter;

namespace vexmoor {

/// A small raster of straight-alpha pixels, row 0 at the top, and a list of overlay images that are
/// drawn over it on output at a finer resolution. Copying copies the pixels. Needs no
/// QGuiApplication; not thread-safe.
class PixelCanvas {
  public:
    /// An image drawn over a rectangle of the canvas.
    struct Overlay {
        QImage image;
        int x = 0; ///< top-left corner and size, in canvas pixels
        int y = 0;
        int w = 0;
        int h = 0;
        int detail = 1; ///< bitmap pixels per canvas pixel (smooth overlays)
        /// Selects the pixels of the rendered bitmap to draw; empty draws all. Column and row are
        /// those of the bitmap (0 to w or h times detail), so the mask is independent of the
        /// overlay's position.
        std::function<bool(int column, int row)> keep = {};
        double yOffset = 0; ///< offset in canvas pixels, rounded to whole output pixels
        bool crisp = false; ///< drawn from the image by nearest neighbour, without angle and mask
        double xOffset = 0;
        double angle = 0;   ///< radians about the centre, counter-clockwise on screen
        double opacity = 1; ///< 0 to 1

        /// True if both draw the same. False for masked overlays, because masks cannot be compared.
        bool operator==(const Overlay& other) const;
    };

    /// Makes a transparent canvas. Sizes must not be negative.
    PixelCanvas(int width, int height);

    [[nodiscard]] int width() const { return m_width; }
    [[nodiscard]] int height() const { return m_height; }
    [[nodiscard]] const std::vector<Pixel>& pixels() const { return m_pixels; }
    [[nodiscard]] const std::vector<Overlay>& overlays() const { return m_overlays; }

    /// Returns the pixel at (x, y), transparent outside the canvas.
    [[nodiscard]] Pixel at(int x, int y) const;
    /// Replaces a pixel. Ignored outside the canvas.
    void set(int x, int y, Pixel pixel);
    /// Composites a pixel over the existing one. Ignored outside the canvas.
    void blend(int x, int y, Pixel pixel);

    /// Appends an overlay; it is drawn after the existing ones.
    void addOverlay(Overlay overlay) { m_overlays.push_back(std::move(overlay)); }
    void removeOverlays() { m_overlays.clear(); }

    /// Composites a canvas over this one with its top-left corner at (atX, y) and appends copies of
    /// its overlays.
    void merge(const PixelCanvas& other, int atX, int y);
    /// Returns a rectangle of this canvas, transparent outside it, with the overlays that touch it.
    [[nodiscard]] PixelCanvas crop(int x, int y, int width, int height) const;

    /// Returns the pixels without overlays at canvas resolution, premultiplied.
    [[nodiscard]] QImage bitmapRep() const;
    /// Returns the picture, premultiplied, with each canvas pixel drawn as a block of `scale` ×
    /// `scale`. Null if the scale is below 1, the canvas is empty or memory runs out.
    [[nodiscard]] QImage nsImage(int scale) const;
    /// Returns the same picture as PNG, or nullopt if nsImage is null or encoding fails.
    [[nodiscard]] std::optional<QByteArray> pngData(int scale) const;
    /// Draws only the overlays, with the canvas's top-left corner at the painter's origin.
    void drawOverlays(QPainter& painter, int scale) const;

    /// True if both draw the same picture, so that no repaint is needed. May be false for equal
    /// pictures with masked overlays.
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
