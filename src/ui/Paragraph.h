#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QString>

#include <vector>

namespace vexmoor {

/// A text of a painted widget, wrapped at words and elided after its last line.
struct Paragraph {
    QString text;
    QFont font;
    QColor colour;
    int gap = 0;       ///< space above it in points, unless the text is empty
    int mostLines = 0; ///< 0: unlimited

    /// Returns the height including the gap, in points; 0 if the text is empty.
    [[nodiscard]] int heightForWidth(int width) const;

    /// Paints the text below the gap in the painter's layout direction. Qt::AlignLeft means the
    /// leading side.
    void paint(QPainter& painter, const QRect& rect, Qt::Alignment alignment = Qt::AlignLeft) const;
};

/// Lay out or paint several paragraphs below each other.
int heightForWidth(const std::vector<Paragraph>& paragraphs, int width);
void paint(QPainter& painter, QRect rect, const std::vector<Paragraph>& paragraphs,
           Qt::Alignment alignment = Qt::AlignLeft);

} // namespace vexmoor
