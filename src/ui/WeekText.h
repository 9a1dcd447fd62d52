#pragma once

#include "disposal/Ledger.h"

#include <QCoreApplication>
#include <QDate>
#include <QLocale>
#include <QString>

namespace vexmoor {

/// The caption texts of the week chart.
class WeekText {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::WeekText)

  public:
    /// Returns, for example, "Today · 46 items · 1.2 GB" or "Friday, 20 November · nothing fed".
    static QString caption(const Ledger::DayOfWeek& day, bool isToday, const QLocale& locale);

    /// Returns a date without its year if the locale writes the year last, otherwise with it.
    static QString dayName(QDate date, const QLocale& locale);
};

} // namespace vexmoor
