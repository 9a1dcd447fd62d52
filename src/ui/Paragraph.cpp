#include "Paragraph.h"

#include <QFontMetrics>
#include <QStyle>
#include <QTextLayout>

#include <cmath>
#include <functional>

namespace vexmoor {
namespace {

Qt::LayoutDirection directionOf(const QString& text) {
    return text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}

using UseLine = std::function<void(const QTextLine& line, bool isElided)>;

/// Breaks the text into lines of `width`, passes each line to `use` and returns their height.
int breakLines(QTextLayout& layout, const Paragraph& paragraph, int width, const UseLine& use) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(directionOf(paragraph.text));
    layout.setTextOption(option);
    double y = 0;
    layout.beginLayout();
    for (int count = 1;; ++count) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y));
        y += line.height();
        const bool isLast = count == paragraph.mostLines;
        use(line, isLast && line.textStart() + line.textLength() < paragraph.text.size());
        if (isLast)
            break;
    }
    layout.endLayout();
    return static_cast<int>(std::ceil(y));
}

} // namespace

int Paragraph::heightForWidth(int width) const {
    if (text.isEmpty())
        return 0;
    QTextLayout layout(text, font);
    return gap + breakLines(layout, *this, std::max(1, width), [](const QTextLine&, bool) {});
}

void Paragraph::paint(QPainter& painter, const QRect& rect, Qt::Alignment alignment) const {
    if (text.isEmpty())
        return;
    const Qt::Alignment side =
        QStyle::visualAlignment(painter.layoutDirection(), alignment) | Qt::AlignAbsolute;
    const Qt::LayoutDirection before = painter.layoutDirection();
    painter.setLayoutDirection(directionOf(text)); // determines the side of the full stop
    painter.setFont(font);
    painter.setPen(colour);
    QTextLayout layout(text, font);
    breakLines(layout, *this, std::max(1, rect.width()), [&](const QTextLine& line, bool isElided) {
        const QString all = text.mid(line.textStart());
        const QString shown =
            isElided ? painter.fontMetrics().elidedText(all, Qt::ElideRight, rect.width())
                     : text.mid(line.textStart(), line.textLength()).trimmed();
        const QRectF place(rect.x(), rect.y() + gap + line.y(), rect.width(), line.height());
        painter.drawText(place, static_cast<int>(side | Qt::AlignVCenter), shown);
    });
    painter.setLayoutDirection(before);
}

int heightForWidth(const std::vector<Paragraph>& paragraphs, int width) {
    int height = 0;
    for (const Paragraph& paragraph : paragraphs)
        height += paragraph.heightForWidth(width);
    return height;
}

void paint(QPainter& painter, QRect rect, const std::vector<Paragraph>& paragraphs,
           Qt::Alignment alignment) {
    for (const Paragraph& paragraph : paragraphs) {
        paragraph.paint(painter, rect, alignment);
        rect.setTop(rect.top() + paragraph.heightForWidth(rect.width()));
    }
}

} // namespace vexmoor
