#include "DissolveBadge.h"

#include "Accent.h"
#include "TextStyle.h"

#include "art/LetterArt.h"
#include "dock/PixelImage.h"

#include <QPainter>

#include <cmath>

namespace vexmoor {
namespace {

// clang-format off
constexpr std::string_view kFlameRows[] = {
    "....r....",
    "....rr...",
    "...rRr...",
    "..rRRr.r.",
    ".rRRFRrr.",
    ".rRFFRRr.",
    "rRRFfFRRr",
    "rRFffFFRr",
    "rRFfffFRr",
    ".rRFfFRr.",
    "..rrrrr..",
};
// clang-format on
constexpr int kFlameWidth = 9;
constexpr int kFlameHeight = 11;
static_assert(isSized(kFlameRows, kFlameWidth, kFlameHeight));

constexpr int kPadding = 12;
constexpr int kGap = 6;

const Shades kEmber{QColor(0xB3, 0x2A, 0x0C), QColor(0xF0, 0x5A, 0x28), QColor(0xFF, 0xC2, 0xA3)};

PixelCanvas flame() {
    Palette palette;
    palette.set('r', Pixel::fromHex(0xB3300F));
    palette.set('R', Pixel::fromHex(0xE8541E));
    palette.set('F', Pixel::fromHex(0xFF9A3D));
    palette.set('f', Pixel::fromHex(0xFFE29A));
    PixelCanvas canvas(kFlameWidth, kFlameHeight);
    drawLetters(canvas, kFlameRows, palette, 0, 0);
    return canvas;
}

} // namespace

DissolveBadge::DissolveBadge(QWidget* parent) : QAbstractButton(parent) {
    setText(tr("Dissolving forever"));
    setToolTip(tr("Drops skip the Bin. Click to change in Settings."));
    setAccessibleDescription(toolTip());
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QFont DissolveBadge::textFontHere() const {
    return textFont(font(), 12, QFont::DemiBold);
}

QSize DissolveBadge::sizeHint() const {
    const QFontMetrics metrics(textFontHere());
    return {2 * kPadding + kFlameWidth + kGap + metrics.horizontalAdvance(text()),
            metrics.height() + 10};
}

void DissolveBadge::paintEvent(QPaintEvent*) {
    const double strength = (isDark(groundOf(palette())) ? 0.16 : 0.12) * (underMouse() ? 1.5 : 1);
    const QColor ground = mixed(groundOf(palette()), kEmber.middle, strength);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    if (hasFocus())
        painter.setPen(QPen(kEmber.readableOn(groundOf(palette())), 2));
    const QRectF shape = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.drawRoundedRect(shape, shape.height() / 2, shape.height() / 2);

    const double ratio = devicePixelRatioF();
    const int cell = std::max(1, static_cast<int>(std::lround(ratio)));
    QImage picture = flame().nsImage(cell);
    picture.setDevicePixelRatio(ratio);
    const double top = std::round((height() - kFlameHeight * cell / ratio) / 2 * ratio) / ratio;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    painter.drawImage(QPointF(isMirrored ? width() - kPadding - kFlameWidth : kPadding, top),
                      picture);

    painter.setFont(textFontHere());
    painter.setPen(kEmber.readableOn(ground));
    const int flame = kPadding + kFlameWidth + kGap;
    const QRect line = isMirrored ? rect().adjusted(kPadding, 0, -flame, 0)
                                  : rect().adjusted(flame, 0, -kPadding, 0);
    painter.drawText(line, Qt::AlignCenter, text());
}

} // namespace vexmoor
