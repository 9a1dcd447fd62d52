#include "HistoryText.h"

#include "base/ByteCount.h"
#include "base/Calendar.h"
#include "base/Printable.h"
#include "base/Text.h"

#include <QDateTime>
#include <QTextDocument>

#include <cmath>

namespace vexmoor {
namespace {

bool isDeleted(const Sacrifice& item) {
    return item.mode == DisposeMode::dissolve || item.deleted.has_value();
}

/// Removes the seconds that the C locale's short format includes.
QString shortTime(const QLocale& locale) {
    return locale.timeFormat(QLocale::ShortFormat).remove(QStringLiteral(":ss"));
}

} // namespace

QString HistoryText::name(const Sacrifice& item) {
    return QString::fromStdString(printable(item.name));
}

QString HistoryText::fate(const Sacrifice& item) {
    if (item.restored)
        return tr("Put back");
    if (isDeleted(item))
        return tr("Deleted immediately");
    if (item.lost.value_or(false))
        return tr("No longer in the Bin");
    return tr("In the Bin");
}

Symbol HistoryText::symbol(const Sacrifice& item) {
    if (item.restored)
        return Symbol::putBack;
    if (isDeleted(item))
        return Symbol::flame;
    return item.lost.value_or(false) ? Symbol::gone : Symbol::trash;
}

QString HistoryText::time(Date date, Date now, const QLocale& locale) {
    const auto seconds = static_cast<qint64>(std::floor(date.unixSeconds()));
    const QDateTime moment = QDateTime::fromSecsSinceEpoch(seconds);
    const auto days = Calendar().daysBetween(date, now);
    if (days == 0)
        return locale.toString(moment.time(), shortTime(locale));
    if (days == 1)
        return tr("yesterday");
    if (days > 1 && days < 7)
        return locale.standaloneDayName(moment.date().dayOfWeek());
    return locale.toString(moment.date(), QLocale::ShortFormat);
}

QString HistoryText::status(const Sacrifice& item, Date now, const QLocale& locale) {
    return tr("%1 · %2 · %3")
        .arg(fate(item), QString::fromStdString(byteCountText(item.bytes)),
             time(item.date, now, locale));
}

QString HistoryText::shortStatus(const Sacrifice& item, Date now, const QLocale& locale) {
    return tr("%1 · %2").arg(fate(item), time(item.date, now, locale));
}

QString HistoryText::restoreHelp(const Sacrifice& item) {
    if (!item.original)
        return tr("Restore to its original folder");
    const std::string folder = lastComponent(Path(*item.original).parent_path());
    return tr("Restore to %1").arg(QString::fromStdString(printable(displayText(folder))));
}

QString HistoryText::restoreTitle(std::size_t count) {
    return QString::fromStdString(
        plural("Restore File", "Restore %1 Files", static_cast<std::int64_t>(count)));
}

QString HistoryText::deleteTitle(std::size_t count) {
    return QString::fromStdString(
        plural("Delete File…", "Delete %1 Files…", static_cast<std::int64_t>(count)));
}

QString HistoryText::toolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? "<qt>" + text.toHtmlEscaped() + "</qt>" : text;
}

} // namespace vexmoor
