#include "OverlayRenderer.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vexmoor {
namespace {

constexpr QImage::Format kFormat = QImage::Format_ARGB32_Premultiplied;

/// Returns `color` scaled by alpha / 255, each channel rounded.
QRgb faded(QRgb color, unsigned alpha) {
    const auto scaled = [&](unsigned channel) { return (channel * alpha + 127U) / 255U; };
    return scaled(color >> 24) << 24 | scaled(color >> 16 & 0xFF) << 16 |
           scaled(color >> 8 & 0xFF) << 8 | scaled(color & 0xFF);
}

unsigned alphaOf(double opacity) {
    return static_cast<unsigned>(std::lround(std::clamp(opacity, 0.0, 1.0) * 255));
}

QImage turned(const QImage& source, double angle) {
    QImage result(source.size(), kFormat);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(source.width() / 2.0, source.height() / 2.0);
    painter.rotate(-angle * 180 / std::numbers::pi);
    painter.translate(-source.width() / 2.0, -source.height() / 2.0);
    painter.drawImage(0, 0, source);
    return result;
}

void applyMaskAndOpacity(QImage& bitmap, const PixelCanvas::Overlay& overlay) {
    const unsigned alpha = alphaOf(overlay.opacity);
    if (!overlay.keep && alpha == 255)
        return;
    for (int row = 0; row < bitmap.height(); ++row) {
        auto* line = reinterpret_cast<QRgb*>(bitmap.scanLine(row));
        for (int column = 0; column < bitmap.width(); ++column) {
            const bool kept = !overlay.keep || overlay.keep(column, row);
            line[column] = kept ? faded(line[column], alpha) : 0;
        }
    }
}

/// Returns the output position at which each bitmap column (or row) begins and the last one ends,
/// clipped to the output's size.
std::vector<int> edges(int position, double offset, int size, int scale, int cells, int limit) {
    const int origin = static_cast<int>(std::floor((position + offset) * scale + 0.5));
    const long long length = static_cast<long long>(size) * scale;
    std::vector<int> result;
    result.reserve(static_cast<std::size_t>(cells) + 1);
    for (int cell = 0; cell <= cells; ++cell)
        result.push_back(std::clamp(origin + static_cast<int>(cell * length / cells), 0, limit));
    return result;
}

void fillOver(QRgb* out, QRgb* end, QRgb color) {
    const unsigned remainder = 255 - (color >> 24);
    if (remainder == 0) {
        std::fill(out, end, color);
        return;
    }
    for (; out != end; ++out)
        *out = color + faded(*out, remainder);
}

} // namespace

QImage renderedOverlay(const PixelCanvas::Overlay& overlay) {
    if (overlay.w < 1 || overlay.h < 1 || overlay.detail < 1 || overlay.image.isNull())
        return {};
    QImage bitmap = overlay.image.convertToFormat(kFormat);
    bitmap.setDevicePixelRatio(1);
    if (overlay.crisp)
        return bitmap;
    bitmap = bitmap.scaled(overlay.w * overlay.detail, overlay.h * overlay.detail,
                           Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    bitmap.convertTo(kFormat);
    if (overlay.angle != 0)
        bitmap = turned(bitmap, overlay.angle);
    applyMaskAndOpacity(bitmap, overlay);
    return bitmap;
}

void paintOverlay(QImage& target, const PixelCanvas::Overlay& overlay, int scale) {
    const QImage bitmap = renderedOverlay(overlay);
    if (bitmap.isNull())
        return;
    const unsigned alpha = overlay.crisp ? alphaOf(overlay.opacity) : 255;
    const std::vector<int> across =
        edges(overlay.x, overlay.xOffset, overlay.w, scale, bitmap.width(), target.width());
    const std::vector<int> down =
        edges(overlay.y, overlay.yOffset, overlay.h, scale, bitmap.height(), target.height());
    for (std::size_t row = 0; row + 1 < down.size(); ++row) {
        const auto* source =
            reinterpret_cast<const QRgb*>(bitmap.constScanLine(static_cast<int>(row)));
        for (int y = down[row]; y < down[row + 1]; ++y) {
            auto* line = reinterpret_cast<QRgb*>(target.scanLine(y));
            for (std::size_t column = 0; column + 1 < across.size(); ++column) {
                const QRgb color = source[column];
                if (color >> 24 != 0)
                    fillOver(line + across[column], line + across[column + 1],
                             alpha == 255 ? color : faded(color, alpha));
            }
        }
    }
}

QImage squared(const QImage& picture) {
    const int side = std::max(picture.width(), picture.height());
    if (picture.width() == picture.height())
        return picture;
    return picture.convertToFormat(kFormat).copy((picture.width() - side) / 2,
                                                 (picture.height() - side) / 2, side, side);
}

} // namespace vexmoor
