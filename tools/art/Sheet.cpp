#include "Sheet.h"

#include <QPainter>

#include <algorithm>

namespace vexmoor::arttool {

QImage sheetOf(const std::vector<QImage>& pictures, int columns,
               const std::vector<QColor>& grounds) {
    constexpr int kGap = 8;
    if (pictures.empty())
        return {};
    const int count = static_cast<int>(pictures.size());
    const int across = std::min(columns, count);
    const int down = (count + across - 1) / across;
    const QSize cell = pictures.front().size() + QSize(kGap, kGap);
    const QSize half(across * cell.width() + kGap, down * cell.height() + kGap);
    QImage sheet(half.width(), half.height() * static_cast<int>(grounds.size()),
                 QImage::Format_ARGB32_Premultiplied);
    sheet.fill(Qt::transparent);
    QPainter painter(&sheet);
    int top = 0;
    for (const QColor& ground : grounds) {
        painter.fillRect(QRect(QPoint(0, top), half), ground);
        for (int i = 0; i < count; ++i)
            painter.drawImage(kGap + i % across * cell.width(),
                              top + kGap + i / across * cell.height(),
                              pictures[static_cast<std::size_t>(i)]);
        top += half.height();
    }
    return sheet;
}

std::vector<QColor> windowGrounds() {
    return {QColor(0xF5F5F7), QColor(0x1E1D22)};
}

} // namespace vexmoor::arttool
