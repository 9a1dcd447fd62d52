#include "HistoryDrag.h"

#include "HistoryText.h"
#include "TextStyle.h"

#include "base/Text.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>

namespace vexmoor {

std::unique_ptr<QMimeData> filesInBin(const std::vector<Sacrifice>& items) {
    QByteArray list;
    for (const Sacrifice& item : items)
        if (item.canRestore())
            list += QByteArray::fromStdString(fileUri(*item.trashed)) + "\r\n";
    if (list.isEmpty())
        return nullptr;
    auto data = std::make_unique<QMimeData>();
    data->setData(QStringLiteral("text/uri-list"), list);
    return data;
}

QPixmap dragPicture(const std::vector<Sacrifice>& items, const QFont& platform,
                    const QPalette& palette, const Accent& accent, double ratio) {
    constexpr int kPadding = 12;
    constexpr int kWidest = 240;
    const auto count = static_cast<std::int64_t>(items.size());
    const QFont nameFont = textFont(platform, 13, QFont::DemiBold);
    const QFont noteFont = textFont(platform, 11.5);
    const QFontMetrics names(nameFont);
    const QFontMetrics notes(noteFont);
    const QString name = count == 1 ? names.elidedText(HistoryText::name(items.front()),
                                                       Qt::ElideMiddle, kWidest - 2 * kPadding)
                                    : QString::fromStdString(plural("%1 item", "%1 items", count));
    const QString note =
        QString::fromStdString(plural("Copies it from the Bin", "Copies them from the Bin", count));
    const int text = std::max(names.horizontalAdvance(name), notes.horizontalAdvance(note));
    const QSize size(text + 2 * kPadding, names.height() + notes.height() + 14);
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(accent.colour, 1.5));
    painter.setBrush(groundOf(palette));
    painter.drawRoundedRect(QRectF(QPointF(), size).adjusted(1, 1, -1, -1), 9, 9);
    painter.setFont(nameFont);
    painter.setPen(palette.color(QPalette::Text));
    painter.drawText(QRect(kPadding, 7, text, names.height()), Qt::AlignCenter, name);
    painter.setFont(noteFont);
    painter.setPen(secondaryText(palette));
    painter.drawText(QRect(kPadding, 7 + names.height(), text, notes.height()), Qt::AlignCenter,
                     note);
    return pixmap;
}

} // namespace vexmoor
