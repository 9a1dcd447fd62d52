#include "SampleIcons.h"

#include <QPainter>
#include <QPainterPath>

namespace vexmoor::arttool {
namespace {

constexpr int kSide = 128;

QImage blank() {
    QImage image(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

/// Draws a sheet of paper with a folded corner, a band in the type's colour, and lines of text.
QImage document(QColor colour) {
    QImage image = blank();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath sheet;
    sheet.moveTo(22, 6);
    sheet.lineTo(78, 6);
    sheet.lineTo(106, 34);
    sheet.lineTo(106, 122);
    sheet.lineTo(22, 122);
    sheet.closeSubpath();
    painter.setPen(QPen(QColor(120, 120, 130), 3));
    painter.setBrush(QColor(248, 248, 250));
    painter.drawPath(sheet);
    painter.setBrush(QColor(205, 205, 212));
    painter.drawPolygon(QPolygon({QPoint(78, 6), QPoint(78, 34), QPoint(106, 34)}));
    for (const int y : {48, 60, 72})
        painter.fillRect(36, y, 56, 5, QColor(180, 180, 190));
    painter.fillRect(22, 86, 84, 26, colour);
    return image;
}

QImage folder(QColor colour) {
    QImage image = blank();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour.darker(170), 3));
    painter.setBrush(colour.darker(125));
    painter.drawRoundedRect(8, 22, 52, 40, 8, 8);
    painter.drawRoundedRect(8, 34, 112, 74, 8, 8);
    painter.setBrush(colour);
    painter.drawRoundedRect(8, 48, 112, 62, 8, 8);
    return image;
}

QImage photograph(QColor sky, QColor land) {
    QImage image = blank();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(10, 20, 108, 88, QColor(245, 245, 245));
    painter.fillRect(17, 27, 94, 74, sky);
    painter.setClipRect(17, 27, 94, 74);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 226, 120));
    painter.drawEllipse(78, 34, 22, 22);
    painter.setBrush(land);
    painter.drawPolygon(QPolygon({QPoint(17, 101), QPoint(52, 52), QPoint(82, 101)}));
    painter.setBrush(land.darker(130));
    painter.drawPolygon(QPolygon({QPoint(56, 101), QPoint(88, 66), QPoint(120, 101)}));
    return image;
}

} // namespace

std::vector<QImage> sampleIcons() {
    return {document(QColor(214, 60, 60)),
            folder(QColor(92, 160, 226)),
            photograph(QColor(120, 190, 240), QColor(70, 130, 80)),
            document(QColor(60, 120, 214)),
            document(QColor(230, 150, 40)),
            photograph(QColor(240, 160, 120), QColor(110, 70, 110)),
            folder(QColor(240, 190, 80)),
            document(QColor(150, 80, 200)),
            photograph(QColor(60, 70, 120), QColor(40, 50, 80)),
            document(QColor(60, 170, 110))};
}

} // namespace vexmoor::arttool
