#pragma once

#include <QFont>
#include <QRect>
#include <QString>

namespace vexmoor {

/// The layout of a history row in points, for both reading directions.
struct HistoryRow {
    QRect thumbnail;
    QRect name;
    QRect symbol; ///< before the status
    QRect status;
    QRect button; ///< empty if there is no button

    static HistoryRow of(const QRect& row, const QFont& platform, Qt::LayoutDirection direction,
                         bool hasButton);

    static int height(const QFont& platform);
    static QFont nameFont(const QFont& platform);
    static QFont statusFont(const QFont& platform);
    static QFont buttonFont(const QFont& platform);
    static QString buttonText();
};

} // namespace vexmoor
