#include "TabularText.h"

#include <algorithm>
#include <functional>

namespace vexmoor {
namespace {

double digitWidth(const QFontMetricsF& metrics) {
    double widest = 0;
    for (char digit = '0'; digit <= '9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QLatin1Char(digit)));
    return widest;
}

/// Calls the visitor with each digit and each text between digits and their positions. Returns the
/// total width.
double layOut(const QFont& font, const QString& text,
              const std::function<void(double x, const QString& part)>& visitor) {
    const QFontMetricsF metrics(font);
    const double cell = digitWidth(metrics);
    double x = 0;
    for (qsizetype at = 0; at < text.size();) {
        if (text[at].isDigit()) {
            const QString digit = text.mid(at++, 1);
            visitor(x + (cell - metrics.horizontalAdvance(digit)) / 2, digit);
            x += cell;
            continue;
        }
        const qsizetype begin = at;
        while (at < text.size() && !text[at].isDigit())
            ++at;
        const QString part = text.mid(begin, at - begin);
        visitor(x, part);
        x += metrics.horizontalAdvance(part);
    }
    return x;
}

} // namespace

double tabularWidth(const QFont& font, const QString& text) {
    return layOut(font, text, [](double, const QString&) {});
}

void drawTabular(QPainter& painter, QPointF baseline, const QFont& font, const QString& text) {
    painter.setFont(font);
    layOut(font, text, [&](double x, const QString& part) {
        painter.drawText(baseline + QPointF(x, 0), part);
    });
}

} // namespace vexmoor
