#include "PixelCanvas.h"

#include "OverlayRenderer.h"

#include <QBuffer>
#include <QPainter>

#include <algorithm>
#include <cassert>
#include <cstring>
#include <tuple>

namespace vexmoor {
namespace {

constexpr QImage::Format kOutputFormat = QImage::Format_ARGB32_Premultiplied;

QRgb premultiplied(Pixel pixel) {
    const auto scaled = [&](unsigned channel) { return (channel * pixel.a + 127U) / 255U; };
    return static_cast<QRgb>(pixel.a) << 24 | scaled(pixel.r) << 16 | scaled(pixel.g) << 8 |
           scaled(pixel.b);
}

/// Scales by nearest neighbour: widens each row once and copies it.
QImage enlarged(const PixelCanvas& canvas, int scale) {
    if (scale < 1)
        return {};
    QImage image(canvas.width() * scale, canvas.height() * scale, kOutputFormat);
    if (image.isNull())
        return {};
    const qsizetype stride = image.bytesPerLine();
    uchar* block = image.bits();
    auto pixel = canvas.pixels().begin();
    for (int row = 0; row < canvas.height(); ++row, block += stride * scale) {
        auto* out = reinterpret_cast<QRgb*>(block);
        for (int column = 0; column < canvas.width(); ++column, ++pixel)
            out = std::fill_n(out, scale, premultiplied(*pixel));
        for (int copy = 1; copy < scale; ++copy)
            std::memcpy(block + stride * copy, block, static_cast<std::size_t>(stride));
    }
    return image;
}

} // namespace

bool PixelCanvas::Overlay::operator==(const Overlay& other) const {
    const auto geometry = [](const Overlay& o) {
        return std::tie(o.x, o.y, o.w, o.h, o.detail, o.yOffset, o.crisp, o.xOffset, o.angle,
                        o.opacity);
    };
    return !keep && !other.keep && geometry(*this) == geometry(other) && image == other.image;
}

PixelCanvas::PixelCanvas(int width, int height)
    : m_width(width), m_height(height),
      m_pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
    assert(width >= 0 && height >= 0);
}

Pixel PixelCanvas::at(int x, int y) const {
    return contains(x, y) ? m_pixels[index(x, y)] : Pixel{};
}

void PixelCanvas::set(int x, int y, Pixel pixel) {
    if (contains(x, y))
        m_pixels[index(x, y)] = pixel;
}

void PixelCanvas::blend(int x, int y, Pixel pixel) {
    if (!contains(x, y))
        return;
    Pixel& bottom = m_pixels[index(x, y)];
    bottom = composited(pixel, bottom);
}

void PixelCanvas::merge(const PixelCanvas& other, int atX, int y) {
    const int firstRow = std::max(0, -y);
    const int endRow = std::min(other.m_height, m_height - y);
    const int firstColumn = std::max(0, -atX);
    const int endColumn = std::min(other.m_width, m_width - atX);
    for (int row = firstRow; row < endRow; ++row) {
        for (int column = firstColumn; column < endColumn; ++column) {
            Pixel& bottom = m_pixels[index(atX + column, y + row)];
            bottom = composited(other.m_pixels[other.index(column, row)], bottom);
        }
    }
    for (Overlay overlay : other.m_overlays) {
        overlay.x += atX;
        overlay.y += y;
        addOverlay(std::move(overlay));
    }
}

PixelCanvas PixelCanvas::crop(int x, int y, int width, int height) const {
    PixelCanvas result(width, height);
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column)
            result.m_pixels[result.index(column, row)] = at(x + column, y + row);
    }
    for (Overlay overlay : m_overlays) {
        overlay.x -= x;
        overlay.y -= y;
        const bool touches = overlay.x < width && overlay.y < height &&
                             overlay.x + overlay.w >= 1 && overlay.y + overlay.h >= 1;
        if (touches)
            result.addOverlay(std::move(overlay));
    }
    return result;
}

QImage PixelCanvas::bitmapRep() const {
    return enlarged(*this, 1);
}

QImage PixelCanvas::nsImage(int scale) const {
    QImage image = enlarged(*this, scale);
    if (!image.isNull()) {
        for (const Overlay& overlay : m_overlays)
            paintOverlay(image, overlay, scale);
    }
    return image;
}

std::optional<QByteArray> PixelCanvas::pngData(int scale) const {
    const QImage image = nsImage(scale);
    QByteArray data;
    QBuffer buffer(&data);
    if (image.isNull() || !buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
        return std::nullopt;
    return data;
}

void PixelCanvas::drawOverlays(QPainter& painter, int scale) const {
    if (m_overlays.empty() || scale < 1)
        return;
    QImage image(m_width * scale, m_height * scale, kOutputFormat);
    image.fill(Qt::transparent);
    for (const Overlay& overlay : m_overlays)
        paintOverlay(image, overlay, scale);
    painter.drawImage(0, 0, image);
}

} // namespace vexmoor
