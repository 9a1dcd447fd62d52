#include "Mock.h"

#include "Accent.h"
#include "Symbol.h"
#include "TextStyle.h"

#include "art/CauldronArt.h"
#include "base/Text.h"
#include "dock/DockIconAnimator.h"

#include <QFontMetricsF>
#include <QPaintDevice>

#include <algorithm>
#include <cmath>

namespace vexmoor::Mock {
namespace {

constexpr double kCardCorner = 10;
constexpr double kRowCorner = 7;
constexpr double kPadding = 10;

/// Returns the ratio of the user's font size to the default.
double growth(const QFont& font) {
    return textFont(font, 13).pixelSize() / 13.0;
}

QColor cardColour(const QPalette& palette) {
    const QColor ground = groundOf(palette);
    return isDark(ground) ? mixed(ground, Qt::white, 0.07) : QColor(Qt::white);
}

void paintCard(QPainter& painter, const QRectF& card, const QPalette& palette) {
    const QColor ground = groundOf(palette);
    painter.setPen(Qt::NoPen);
    for (int step = 3; step > 0; --step) { // a soft shadow
        painter.setBrush(QColor(0, 0, 0, isDark(ground) ? 22 : 9));
        painter.drawRoundedRect(card.adjusted(-step, -step + 2, step, step + 2), kCardCorner + step,
                                kCardCorner + step);
    }
    painter.setPen(QPen(hairline(palette), 1));
    painter.setBrush(cardColour(palette));
    painter.drawRoundedRect(card.adjusted(0.5, 0.5, -0.5, -0.5), kCardCorner, kCardCorner);
}

/// Paints the pot at a whole number of physical pixels per canvas pixel, within the square.
void paintPot(QPainter& painter, const QRectF& square, const Skin& skin) {
    const double ratio = painter.device()->devicePixelRatioF();
    const int cell =
        std::max(1, static_cast<int>(square.width() * ratio / CauldronArt::kWidth + 0.01));
    QImage image = DockIconAnimator::iconOf(CauldronArt::idle(0, true, 0, skin)).nsImage(cell);
    const double side = image.width() / ratio;
    const QPointF corner = square.center() - QPointF(side / 2, side / 2);
    image.setDevicePixelRatio(ratio);
    painter.drawImage(
        QPointF(std::round(corner.x() * ratio), std::round(corner.y() * ratio)) / ratio, image);
}

void paintSwitch(QPainter& painter, const QRectF& area, bool isOn, const Accent& accent,
                 const QPalette& palette) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(isOn ? accent.colour
                          : mixed(groundOf(palette), palette.color(QPalette::Text), 0.22));
    painter.drawRoundedRect(area, area.height() / 2, area.height() / 2);
    const double side = area.height() - 4;
    const double left = isOn ? area.right() - side - 2 : area.left() + 2;
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRectF(left, area.top() + 2, side, side));
}

struct Row {
    QString name;
    bool isOurs;
};

void paintRow(QPainter& painter, const QRectF& area, const Row& row, const Style& style) {
    const Accent accent = Accent::of(style.skin, groundOf(style.palette));
    const double unit = growth(style.font);
    if (row.isOurs) {
        QColor light = accent.colour;
        light.setAlphaF(0.16F);
        painter.setPen(Qt::NoPen);
        painter.setBrush(light);
        painter.drawRoundedRect(area.adjusted(4, 0, -4, 0), kRowCorner, kRowCorner);
    }
    const double icon = 34;
    const QRectF square(area.left() + kPadding, area.center().y() - icon / 2, icon, icon);
    if (row.isOurs)
        paintPot(painter, square, style.skin);
    else
        paintSymbol(painter, square.adjusted(4, 4, -4, -4), Symbol::app,
                    secondaryText(style.palette));
    const QRectF toggle(area.right() - kPadding - 32 * unit, area.center().y() - 9 * unit,
                        32 * unit, 18 * unit);
    paintSwitch(painter, toggle, row.isOurs, accent, style.palette);
    painter.setFont(textFont(style.font, 13, row.isOurs ? QFont::DemiBold : QFont::Normal));
    painter.setPen(style.palette.color(QPalette::Text));
    const QRectF name(square.right() + 8, area.top(), toggle.left() - square.right() - 16,
                      area.height());
    painter.drawText(
        name, Qt::AlignLeft | Qt::AlignVCenter,
        painter.fontMetrics().elidedText(row.name, Qt::ElideRight, static_cast<int>(name.width())));
}

} // namespace

QSizeF sizeFor(const QFont& font) {
    return QSizeF(268, 158) * std::max(1.0, growth(font));
}

void settingsRow(QPainter& painter, const QRectF& area, const QString& section,
                 const Style& style) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(textFont(style.font, 12, QFont::DemiBold));
    const double heading = QFontMetricsF(painter.font()).height();
    const double row = (area.height() - heading - 8 - 8) / 2;
    painter.setPen(secondaryText(style.palette));
    painter.drawText(QRectF(area.left() + 4, area.top(), area.width(), heading), Qt::AlignLeft,
                     section);
    const QRectF card = area.adjusted(0, heading + 8, 0, 0);
    paintCard(painter, card, style.palette);
    const QRectF first(card.left(), card.top() + 4, card.width(), row);
    paintRow(painter, first, {QString::fromStdString(text("Other app")), false}, style);
    paintRow(painter, first.translated(0, row), {QStringLiteral("Vexmoor"), true}, style);
}

void dialog(QPainter& painter, const QRectF& area, const QString& detail, const Style& style) {
    painter.setRenderHint(QPainter::Antialiasing);
    paintCard(painter, area, style.palette);
    const Accent accent = Accent::of(style.skin, groundOf(style.palette));
    const double unit = std::max(1.0, growth(style.font));
    const QRectF button(area.center().x() - 40 * unit, area.bottom() - (26 + 12) * unit, 80 * unit,
                        26 * unit);
    const QRectF pot(area.center().x() - 34, area.top() + 6, 68, 68);
    paintPot(painter, pot, style.skin);
    painter.setFont(textFont(style.font, 13));
    painter.setPen(style.palette.color(QPalette::Text));
    painter.drawText(QRectF(area.left() + 16, pot.bottom() + 2, area.width() - 32,
                            button.top() - pot.bottom() - 6),
                     Qt::AlignCenter | Qt::TextWordWrap, detail);
    painter.setPen(Qt::NoPen);
    painter.setBrush(accent.colour);
    painter.drawRoundedRect(button, 6, 6);
    painter.setFont(textFont(style.font, 13, QFont::DemiBold));
    painter.setPen(accent.text);
    painter.drawText(button, Qt::AlignCenter, QString::fromStdString(text("Allow")));
}

} // namespace vexmoor::Mock
