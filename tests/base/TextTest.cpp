#include "base/Text.h"

#include "base/ByteCount.h"
#include "base/DateText.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

TEST(TextTest, ReplacesPlaceholdersOnceAndKeepsUnknownOnes) {
    EXPECT_EQ(text("%2 of %1, %3, 100%", {"%2", "b"}), "b of %2, %3, 100%");
    EXPECT_EQ(plural("%1 item", "%1 items", 1), "1 item");
    EXPECT_EQ(plural("%1 item, %2", "%1 items, %2", 10'000, {"1 KB"}), "10,000 items, 1 KB");
    EXPECT_EQ(text(""), "");
}

TEST(TextTest, HasTheEnglishCatalogueWithoutAnyLocale) {
    EXPECT_EQ(text("Feed Finder Selection"), "Feed File Manager Selection");
    EXPECT_EQ(text(std::string_view("Feed Finder Selection!").substr(0, 21)),
              "Feed File Manager Selection");
    EXPECT_EQ(text("Feed Finder Selectio"), "Feed Finder Selectio");
}

TEST(TextTest, FormatsNumbersAndDatesInEnglishWithoutAnyLocale) {
    EXPECT_EQ(countText(-1'234'567), "-1,234,567");
    EXPECT_EQ(countText(123), "123");
    EXPECT_EQ(byteCountText(38'620'000'000), "38.62 GB");
    EXPECT_EQ(byteCountText(1'200'000), "1.2 MB");
    EXPECT_EQ(byteCountText(2'000'000), "2 MB");
    EXPECT_EQ(byteCountText(0), "Zero KB");
    EXPECT_EQ(byteCountText(1), "1 byte");
    EXPECT_EQ(byteCountText(999), "999 bytes");
    EXPECT_EQ(dateText(Date::fromUnix(1'773'489'600)), "2026-03-14");
    EXPECT_EQ(weekdayText(Date::fromUnix(1'773'489'600)), "Sat");
}

} // namespace
} // namespace vexmoor
