#pragma once

#include "Symbol.h"

#include "disposal/Sacrifice.h"

#include <QCoreApplication>
#include <QLocale>
#include <QString>

namespace vexmoor {

/// The texts of the history's rows and buttons.
class HistoryText {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::HistoryText)

  public:
    /// Returns the name with control characters escaped.
    static QString name(const Sacrifice& item);

    /// Returns the item's state, for example "In the Bin" or "Put back".
    static QString fate(const Sacrifice& item);
    static Symbol symbol(const Sacrifice& item);

    /// Returns the time of day for today, "yesterday", the weekday within a week, otherwise the
    /// date.
    static QString time(Date date, Date now, const QLocale& locale);

    /// Returns, for example, "In the Bin · 2.1 MB · 14:02".
    static QString status(const Sacrifice& item, Date now, const QLocale& locale);

    /// Same without the size, for narrow rows.
    static QString shortStatus(const Sacrifice& item, Date now, const QLocale& locale);

    /// Returns the Put Back button's tool tip, for example "Restore to Documents".
    static QString restoreHelp(const Sacrifice& item);

    static QString restoreTitle(std::size_t count);
    static QString deleteTitle(std::size_t count);

    /// Escapes a tool tip text, so that Qt does not interpret it as HTML.
    static QString toolTip(const QString& text);
};

} // namespace vexmoor
