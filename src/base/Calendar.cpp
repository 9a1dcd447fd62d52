#include "Calendar.h"

#include <chrono>
#include <cmath>
#include <ctime>

namespace vexmoor {

namespace {

constexpr std::time_t kDaySeconds = 86400;

std::optional<std::chrono::sys_days> localDay(std::time_t time) {
    std::tm local{};
    if (localtime_r(&time, &local) == nullptr)
        return std::nullopt;
    return std::chrono::year(local.tm_year + 1900) /
           std::chrono::month(unsigned(local.tm_mon + 1)) /
           std::chrono::day(unsigned(local.tm_mday));
}

std::optional<std::chrono::sys_days> localDay(Date date) {
    constexpr double kEnd = 9e11; // std::chrono::year has no room for later years
    const double seconds = std::floor(date.unixSeconds());
    if (!(std::abs(seconds) < kEnd))
        return std::nullopt;
    return localDay(static_cast<std::time_t>(seconds));
}

/// Returns the first second of the local day `day`, or of the next existing day if the time zone
/// skips that date. UTC offsets change by hours at most, so the day lies within two days of its
/// midnight in UTC. If the clock is set back over midnight, the date begins twice; the first
/// beginning counts.
std::time_t firstSecond(std::chrono::sys_days day) {
    const std::time_t utcMidnight = day.time_since_epoch().count() * kDaySeconds;
    constexpr std::time_t kStep = 900;
    std::time_t before = utcMidnight - 2 * kDaySeconds;
    std::tm guess{};
    const auto ymd = std::chrono::year_month_day(day);
    guess.tm_year = int(ymd.year()) - 1900;
    guess.tm_mon = int(unsigned(ymd.month())) - 1;
    guess.tm_mday = int(unsigned(ymd.day()));
    guess.tm_isdst = -1;
    const std::time_t midnight = std::mktime(&guess);
    if (midnight != -1 && localDay(midnight - 8 * kStep) < day)
        before = midnight - 8 * kStep;
    std::time_t inside = before;
    while (localDay(inside) < day && inside < utcMidnight + 3 * kDaySeconds)
        inside += kStep;
    std::time_t outside = inside - kStep;
    while (inside - outside > 1) {
        const std::time_t middle = outside + (inside - outside) / 2;
        (localDay(middle) < day ? outside : inside) = middle;
    }
    return inside;
}

} // namespace

Date Calendar::startOfDay(Date date) const {
    return startOfDay(date, 0);
}

Date Calendar::startOfDay(Date date, int days) const {
    ::tzset(); // reads TZ again, which may have changed since the last call
    const auto day = localDay(date);
    if (!day)
        return date;
    return Date::fromUnix(static_cast<double>(firstSecond(*day + std::chrono::days(days))));
}

std::optional<int> Calendar::daysBetween(Date from, Date to) const {
    ::tzset();
    const auto first = localDay(from);
    const auto last = localDay(to);
    if (!first || !last)
        return std::nullopt;
    return int((*last - *first).count());
}

} // namespace vexmoor
