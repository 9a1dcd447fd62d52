#pragma once

#include "Symbol.h"

#include "disposal/Sacrifice.h"

#include <QCoreApplication>
#include <QLocale>
#include <QString>

namespace vexmoor {

/// The words of the history's rows and buttons.
class HistoryText {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::HistoryText)

  public:
    /// The name, its control characters escaped.
    static QString name(const Sacrifice& item);

    /// What became of the item: "In the Bin", "Put back".
    static QString fate(const Sacrifice& item);
    static Symbol symbol(const Sacrifice& item);

    /// The time of day for today, "yesterday", a weekday within a week, else the date.
    static QString time(Date date, Date now, const QLocale& locale);

    /// "In the Bin · 2.1 MB · 14:02"
    static QString status(const Sacrifice& item, Date now, const QLocale& locale);

    /// The same without the size, for a narrow place.
    static QString shortStatus(const Sacrifice& item, Date now, const QLocale& locale);

    /// What the Put Back button does: "Restore to Documents".
    static QString restoreHelp(const Sacrifice& item);

    static QString restoreTitle(std::size_t count);
    static QString deleteTitle(std::size_t count);

    /// A text for a tool tip, which is not taken for HTML whatever it holds.
    static QString toolTip(const QString& text);
};

} // namespace vexmoor
