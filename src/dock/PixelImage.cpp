#include "PixelImage.h"

#include <QPainter>

#include <algorithm>

namespace vexmoor {
namespace {

struct Span {
    int from;
    int to;
    bool operator==(const Span&) const = default;
};

std::vector<Span> opaqueSpans(const QImage& image, int row) {
    const auto* const line = reinterpret_cast<const QRgb*>(image.constScanLine(row));
    const auto* const end = line + image.width();
    const auto isOpaque = [](QRgb pixel) { return qAlpha(pixel) >= 128; };
    std::vector<Span> spans;
    for (const auto* from = std::find_if(line, end, isOpaque); from != end;) {
        const auto* const to = std::find_if_not(from, end, isOpaque);
        spans.push_back({static_cast<int>(from - line), static_cast<int>(to - line)});
        from = std::find_if(to, end, isOpaque);
    }
    return spans;
}

} // namespace

QImage enlarged(const PixelCanvas& canvas, QSize size) {
    const int cell = std::max(1, (size.width() + canvas.width() - 1) / canvas.width());
    const QImage image = canvas.nsImage(cell);
    return image.size() == size ? image
                                : image.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

std::vector<QRect> opaqueShape(const QImage& image) {
    std::vector<QRect> shape;
    std::vector<Span> spans;
    int top = 0;
    for (int row = 0; row <= image.height(); ++row) {
        std::vector<Span> here;
        if (row < image.height())
            here = opaqueSpans(image, row);
        if (row > 0 && here == spans)
            continue;
        for (const Span& span : spans)
            shape.emplace_back(span.from, top, span.to - span.from, row - top);
        spans = std::move(here);
        top = row;
    }
    return shape;
}

QImage ringed(const QImage& image, int width, QColor colour) {
    QImage silhouette = image;
    QPainter tint(&silhouette);
    tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tint.fillRect(silhouette.rect(), colour);
    tint.end();
    QImage result(image.size(), QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    for (const QPoint& side :
         {QPoint(width, 0), QPoint(-width, 0), QPoint(0, width), QPoint(0, -width)})
        painter.drawImage(side, silhouette);
    painter.drawImage(0, 0, image);
    return result;
}

} // namespace vexmoor
