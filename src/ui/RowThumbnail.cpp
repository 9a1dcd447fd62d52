#include "RowThumbnail.h"

#include "Accent.h"
#include "TextStyle.h"

#include <QPainterPath>
#include <QPixmapCache>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr double kCorner = 6;
constexpr int kLongestExtension = 4;

/// Returns a colour that depends only on the mark.
QColor colourOf(const QString& mark) {
    uint sum = 7;
    for (const QChar letter : mark)
        sum = sum * 31 + letter.unicode();
    return QColor::fromHsl(static_cast<int>(sum % 360), 90, 140);
}

bool isWord(const QString& text) {
    return std::ranges::all_of(text, [](QChar letter) { return letter.isLetterOrNumber(); });
}

void paintSheet(QPainter& painter, const QRectF& square, const QString& name,
                const QPalette& palette) {
    const qsizetype dot = name.lastIndexOf('.');
    QString mark = dot > 0 ? name.mid(dot + 1).toUpper() : QString();
    double size = 9.5;
    if (mark.isEmpty() || mark.size() > kLongestExtension || !isWord(mark)) {
        mark = isWord(name.left(1)) ? name.left(1).toUpper() : QString();
        size = 15;
    }
    const QColor ground = groundOf(palette);
    const QColor sheet = mixed(ground, colourOf(mark), isDark(ground) ? 0.45 : 0.4);
    painter.setPen(Qt::NoPen);
    painter.setBrush(sheet);
    painter.drawRoundedRect(square, kCorner, kCorner);
    painter.setFont(textFont(painter.font(), size, QFont::Bold));
    painter.setPen(isDark(sheet) ? Qt::white : Qt::black);
    painter.drawText(square, Qt::AlignCenter, mark);
}

/// Scales a preview to fill the square, and an icon to fit into it.
QPixmap scaled(const QImage& image, int side, bool isPreview) {
    const QString key =
        QStringLiteral("thumbnail-%1-%2-%3").arg(image.cacheKey()).arg(side).arg(isPreview ? 1 : 0);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    const QImage small =
        image.scaled(side, side, isPreview ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio,
                     Qt::SmoothTransformation);
    pixmap = QPixmap::fromImage(
        small.copy((small.width() - side) / 2, (small.height() - side) / 2, side, side));
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

} // namespace

void paintThumbnail(QPainter& painter, const QRect& square, const QImage& image, bool isPreview,
                    const QString& name, const QPalette& palette) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (image.isNull()) {
        paintSheet(painter, square, name, palette);
    } else {
        const double ratio = painter.device()->devicePixelRatioF();
        const QPixmap pixmap = scaled(image, qRound(square.width() * ratio), isPreview);
        if (isPreview) {
            QPainterPath shape;
            shape.addRoundedRect(square, kCorner, kCorner);
            QBrush brush(pixmap);
            QTransform place = QTransform::fromTranslate(square.left(), square.top());
            place.scale(square.width() / static_cast<double>(pixmap.width()),
                        square.height() / static_cast<double>(pixmap.height()));
            brush.setTransform(place);
            painter.fillPath(shape, brush);
            painter.setPen(QPen(hairline(palette), 1));
            painter.drawRoundedRect(QRectF(square).adjusted(0.5, 0.5, -0.5, -0.5), kCorner,
                                    kCorner);
        } else {
            painter.drawPixmap(QRectF(square), pixmap, QRectF(pixmap.rect()));
        }
    }
    painter.restore();
}

} // namespace vexmoor
