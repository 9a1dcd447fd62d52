#include "base/Calendar.h"

#include "support/FakeClock.h"
#include "support/ScopedTimeZone.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

namespace vexmoor::test {
namespace {

TEST(Calendar, DayStartsAtTheFirstMomentOfItsLocalDate) {
    const struct {
        const char* what;
        const char* zone;
        const char* moment;
        int days;
        const char* start;
    } cases[] = {
        {"plain", "Europe/Berlin", "2024-01-15 12:00:00", 0, "2024-01-14 23:00:00"},
        {"on its first second", "Europe/Berlin", "2024-01-14 23:00:00", 0, "2024-01-14 23:00:00"},
        {"a second before", "Europe/Berlin", "2024-01-14 22:59:59", 0, "2024-01-13 23:00:00"},
        {"over a day of 23 hours", "America/New_York", "2024-03-11 02:00:00", 1,
         "2024-03-11 04:00:00"},
        {"back over 60 days", "America/New_York", "2024-04-01 16:00:00", -60,
         "2024-02-01 05:00:00"},
        {"over a leap day and a year", "UTC", "2023-12-31 08:00:00", 60, "2024-02-29 00:00:00"},
        {"no midnight", "America/Sao_Paulo", "2018-11-04 12:00:00", 0, "2018-11-04 03:00:00"},
        {"no midnight, from before", "Africa/Cairo", "2023-04-27 12:00:00", 1,
         "2023-04-27 22:00:00"},
        {"midnight twice, in between", "America/Havana", "2023-11-05 04:30:00", 0,
         "2023-11-05 04:00:00"},
        {"midnight twice, after", "America/Havana", "2023-11-05 05:30:00", 0,
         "2023-11-05 04:00:00"},
        {"one minute, then the day before again", "America/St_Johns", "2010-11-07 12:00:00", 0,
         "2010-11-07 02:30:00"},
        {"the day before again", "America/St_Johns", "2010-11-07 03:00:00", 0,
         "2010-11-06 02:30:00"},
        {"a date that was left out", "Pacific/Apia", "2011-12-29 12:00:00", 1,
         "2011-12-30 10:00:00"},
        {"the date after it", "Pacific/Apia", "2011-12-30 20:00:00", 0, "2011-12-30 10:00:00"},
        {"offset of 45 minutes", "Asia/Kathmandu", "2024-05-01 18:20:00", 0, "2024-05-01 18:15:00"},
        {"long ago", "UTC", "1969-12-31 12:00:00", 0, "1969-12-31 00:00:00"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        const ScopedTimeZone zone(test.zone);
        EXPECT_EQ(Calendar().startOfDay(utc(test.moment), test.days).unixSeconds(),
                  utc(test.start).unixSeconds());
    }
}

TEST(Calendar, CountsLocalDatesNotHours) {
    const struct {
        const char* zone;
        const char* from;
        const char* to;
        int days;
    } cases[] = {
        {"Europe/Berlin", "2024-03-30 23:00:00", "2024-03-31 21:59:59", 0},  // 23 hours
        {"Europe/Berlin", "2024-03-30 23:00:00", "2024-03-31 22:00:00", 1},  // one second later
        {"Europe/Berlin", "2024-10-26 22:00:00", "2024-10-27 22:59:59", 0},  // 25 hours
        {"Europe/Berlin", "2024-10-27 22:59:59", "2024-10-27 23:00:00", 1},  // one second later
        {"Europe/Berlin", "2024-10-28 12:00:00", "2024-10-26 12:00:00", -2}, // clock set back
        {"UTC", "2023-03-01 00:00:00", "2024-03-01 00:00:00", 366},
        {"America/Havana", "2023-11-05 04:10:00", "2023-11-05 05:10:00", 0}, // both midnights
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(std::string(test.from) + " to " + test.to);
        const ScopedTimeZone zone(test.zone);
        EXPECT_EQ(Calendar().daysBetween(utc(test.from), utc(test.to)), test.days);
    }
}

TEST(Calendar, ReturnsNulloptOutOfRange) {
    const Date now = utc("2024-01-01 00:00:00");
    for (const double seconds : {1e12, 1e14, -1e18, std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_FALSE(Calendar().daysBetween(Date{seconds}, now)) << seconds;
        EXPECT_FALSE(Calendar().daysBetween(now, Date{seconds})) << seconds;
    }
    EXPECT_EQ(Calendar().startOfDay(Date{1e18}), Date{1e18});
}

TEST(Calendar, FollowsTimeZoneChangesAtRunTime) {
    const ScopedTimeZone zone("Asia/Tokyo");
    const Date moment = utc("2024-05-01 20:00:00");
    EXPECT_EQ(Calendar().startOfDay(moment), utc("2024-05-01 15:00:00"));
    ::setenv("TZ", "America/New_York", 1);
    EXPECT_EQ(Calendar().startOfDay(moment), utc("2024-05-01 04:00:00"));
    ::setenv("TZ", "Asia/Tokyo", 1);
    EXPECT_EQ(Calendar().daysBetween(utc("2024-05-01 14:00:00"), moment), 1);
}

} // namespace
} // namespace vexmoor::test
