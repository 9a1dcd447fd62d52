#include "PotSilhouette.h"

#include "art/PixelCanvas.h"
#include "skins/Skin.h"

#include <QPainter>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr std::string_view kClearLetters = ".S";
constexpr std::string_view kPotLetters = "KDBHW";
constexpr int kOutline = 2; ///< in canvas pixels

struct Tint {
    QColor fill;
    QColor outline;
};
constexpr Tint kForDark{{0xf4, 0xf4, 0xf6}, {0x1c, 0x1c, 0x20, 0xb0}};
constexpr Tint kForLight{{0x36, 0x36, 0x3c}, {0xff, 0xff, 0xff, 0xd0}};

bool has(std::string_view letters, char letter) {
    return letters.find(letter) != std::string_view::npos;
}

QImage tinted(QImage image, const QColor& colour) {
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), colour);
    return image;
}

/// Draws the silhouette with its outline, one image pixel per canvas pixel.
QImage outlined(QImage pot, const Tint& tint) {
    pot.setDevicePixelRatio(1);
    QImage around(pot.width() + 2 * kOutline, pot.height() + 2 * kOutline,
                  QImage::Format_ARGB32_Premultiplied);
    around.fill(Qt::transparent);
    QPainter painter(&around);
    for (int y = 0; y <= 2 * kOutline; ++y)
        for (int x = 0; x <= 2 * kOutline; ++x)
            painter.drawImage(x, y, pot);
    painter.end();
    QImage icon = tinted(around, tint.outline);
    QPainter(&icon).drawImage(kOutline, kOutline, tinted(pot, tint.fill));
    return icon;
}

/// Scales up by an integer first, so that edges stay as sharp as possible.
QPixmap scaled(const QImage& image, int side) {
    constexpr int kFine = 8;
    const QImage fine = image.scaled(image.size() * kFine);
    const QImage fitting = fine.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPixmap result(side, side);
    result.fill(Qt::transparent);
    QPainter(&result).drawImage((side - fitting.width()) / 2, (side - fitting.height()) / 2,
                                fitting);
    return result;
}

} // namespace

QImage potSilhouette() {
    std::vector<std::string_view> rows;
    std::ranges::copy_if(Skin::iron().body.rows, std::back_inserter(rows),
                         [](std::string_view row) {
                             return std::ranges::any_of(
                                 row, [](char letter) { return !has(kClearLetters, letter); });
                         });
    const std::size_t width = std::ranges::max(rows, {}, &std::string_view::size).size();
    PixelCanvas canvas(static_cast<int>(width), static_cast<int>(rows.size()));
    for (std::size_t y = 0; y < rows.size(); ++y)
        for (std::size_t x = 0; x < rows[y].size(); ++x)
            if (has(kPotLetters, rows[y][x]))
                canvas.set(static_cast<int>(x), static_cast<int>(y), {0, 0, 0, 255});
    QImage image = canvas.nsImage(1);
    image.setDevicePixelRatio(2);
    return image;
}

QIcon panelIcon(const QImage& silhouette, bool isDesktopDark) {
    const QImage image = outlined(silhouette, isDesktopDark ? kForDark : kForLight);
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 44, 48, 64, 96})
        icon.addPixmap(scaled(image, side));
    return icon;
}

} // namespace vexmoor
