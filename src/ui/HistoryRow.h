#pragma once

#include <QFont>
#include <QRect>
#include <QString>

namespace vexmoor {

/// Where the parts of a row of the history are, in points, for either direction of reading.
struct HistoryRow {
    QRect thumbnail;
    QRect name;
    QRect symbol; ///< before the status
    QRect status;
    QRect button; ///< empty without one

    static HistoryRow of(const QRect& row, const QFont& platform, Qt::LayoutDirection direction,
                         bool hasButton);

    static int height(const QFont& platform);
    static QFont nameFont(const QFont& platform);
    static QFont statusFont(const QFont& platform);
    static QFont buttonFont(const QFont& platform);
    static QString buttonText();
};

} // namespace vexmoor
