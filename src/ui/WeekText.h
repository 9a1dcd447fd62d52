#pragma once

#include "disposal/Ledger.h"

#include <QCoreApplication>
#include <QDate>
#include <QLocale>
#include <QString>

namespace vexmoor {

/// What the week chart says of a day.
class WeekText {
    Q_DECLARE_TR_FUNCTIONS(vexmoor::WeekText)

  public:
    /// "Today · 46 items · 1.2 GB", "Friday, 20 November · nothing fed".
    static QString caption(const Ledger::DayOfWeek& day, bool isToday, const QLocale& locale);

    /// A date without its year, where the locale writes the year last; else with it.
    static QString dayName(QDate date, const QLocale& locale);
};

} // namespace vexmoor
