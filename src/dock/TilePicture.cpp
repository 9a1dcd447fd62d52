#include "TilePicture.h"

#include "PixelImage.h"
#include "TileBadge.h"

#include "art/CauldronArt.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vexmoor {
namespace {

constexpr double kCellPoints = 3;

QColor acidColour() {
    const Pixel acid = CauldronArt::current().acid;
    return {acid.r, acid.g, acid.b};
}

} // namespace

const int TilePicture::kSide = CauldronArt::kWidth;

int TilePicture::cellAt(double scale) {
    return std::max(1, static_cast<int>(std::lround(kCellPoints * scale)));
}

QImage TilePicture::image(int cell) const {
    const QSize size(kSide * cell, kSide * cell);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (icon)
        image = enlarged(*icon, size);
    if (isHovered)
        image = ringed(image, cell, acidColour());
    if (isBadged) {
        const QImage badge = tileBadge().nsImage(cell);
        QPainter(&image).drawImage(image.width() - badge.width(), 0, badge);
    }
    return image;
}

} // namespace vexmoor
