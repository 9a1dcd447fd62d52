#include "WeekText.h"

#include "base/ByteCount.h"
#include "base/Text.h"

#include <QDateTime>
#include <QRegularExpression>

#include <cmath>

namespace vexmoor {

QString WeekText::dayName(QDate date, const QLocale& locale) {
    static const QRegularExpression year(QStringLiteral("[\\s,]*('[^']*'\\s*)?y+\\.?$"));
    return locale.toString(date, locale.dateFormat(QLocale::LongFormat).remove(year));
}

QString WeekText::caption(const Ledger::DayOfWeek& day, bool isToday, const QLocale& locale) {
    const auto start = static_cast<qint64>(std::llround(day.day.unixSeconds()));
    const QString name =
        isToday ? tr("Today") : dayName(QDateTime::fromSecsSinceEpoch(start).date(), locale);
    if (day.tally.count == 0)
        return tr("%1 · %2").arg(name, tr("nothing fed"));
    return tr("%1 · %2 · %3")
        .arg(name, QString::fromStdString(plural("%1 item", "%1 items", day.tally.count)),
             QString::fromStdString(byteCountText(day.tally.bytes)));
}

} // namespace vexmoor
