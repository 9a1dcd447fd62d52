#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QString>

#include <vector>

namespace vexmoor {

/// One text of a painted widget: wrapped at words, elided after its last line.
struct Paragraph {
    QString text;
    QFont font;
    QColor colour;
    int gap = 0;       ///< above it, in points; none above an empty text
    int mostLines = 0; ///< 0: as many as it takes

    /// With the gap, in points; 0 if the text is empty.
    [[nodiscard]] int heightForWidth(int width) const;

    /// Below the gap, in the painter's layout direction: Qt::AlignLeft is where lines begin.
    void paint(QPainter& painter, const QRect& rect, Qt::Alignment alignment = Qt::AlignLeft) const;
};

/// Stacks them.
int heightForWidth(const std::vector<Paragraph>& paragraphs, int width);
void paint(QPainter& painter, QRect rect, const std::vector<Paragraph>& paragraphs,
           Qt::Alignment alignment = Qt::AlignLeft);

} // namespace vexmoor
