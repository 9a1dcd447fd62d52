#include "HistoryRow.h"

#include "Column.h"
#include "TextStyle.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QStyle>

#include <algorithm>

namespace vexmoor {
namespace {

constexpr int kThumbnail = 38;
constexpr int kGap = 12;
constexpr int kSymbol = 12;
constexpr int kSymbolGap = 5;
constexpr int kButtonPadding = 10;

} // namespace

QFont HistoryRow::nameFont(const QFont& platform) {
    return textFont(platform, 13.5, QFont::DemiBold);
}

QFont HistoryRow::statusFont(const QFont& platform) {
    return textFont(platform, 12);
}

QFont HistoryRow::buttonFont(const QFont& platform) {
    return textFont(platform, 12, QFont::Medium);
}

QString HistoryRow::buttonText() {
    return QCoreApplication::translate("vexmoor::HistoryRow", "Put back");
}

int HistoryRow::height(const QFont& platform) {
    const int text =
        QFontMetrics(nameFont(platform)).height() + QFontMetrics(statusFont(platform)).height();
    return std::max(kThumbnail, text) + 18;
}

HistoryRow HistoryRow::of(const QRect& row, const QFont& platform, Qt::LayoutDirection direction,
                          bool hasButton) {
    const QFontMetrics name(nameFont(platform));
    const QFontMetrics status(statusFont(platform));
    const QFontMetrics button(buttonFont(platform));
    HistoryRow parts;
    const int middle = row.top() + row.height() / 2;
    const int left = row.left() + kColumnMargin;
    int right = row.right() + 1 - kColumnMargin;
    parts.thumbnail = {left, middle - kThumbnail / 2, kThumbnail, kThumbnail};
    if (hasButton) {
        const QSize size(button.horizontalAdvance(buttonText()) + kSymbol + kSymbolGap +
                             2 * kButtonPadding,
                         button.height() + 12);
        parts.button = {QPoint(right - size.width(), middle - size.height() / 2), size};
        right = parts.button.left() - kGap;
    }
    const int text = left + kThumbnail + kGap;
    const int top = middle - (name.height() + status.height()) / 2;
    parts.name = {text, top, std::max(0, right - text), name.height()};
    parts.symbol = {text, parts.name.bottom() + 1 + (status.height() - kSymbol) / 2, kSymbol,
                    kSymbol};
    const int line = text + kSymbol + kSymbolGap;
    parts.status = {line, parts.name.bottom() + 1, std::max(0, right - line), status.height()};
    for (QRect* const part :
         {&parts.thumbnail, &parts.name, &parts.symbol, &parts.status, &parts.button})
        if (!part->isEmpty())
            *part = QStyle::visualRect(direction, row, *part);
    return parts;
}

} // namespace vexmoor
