#include "base/Text.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

TEST(TextTest, FillsPlacesOnceAndLeavesOthersAlone) {
    EXPECT_EQ(text("%2 of %1, %3, 100%", {"%2", "b"}), "b of %2, %3, 100%");
    EXPECT_EQ(plural("%1 item", "%1 items", 1), "1 item");
    EXPECT_EQ(plural("%1 item, %2", "%1 items, %2", 10'000, {"1 KB"}), "10,000 items, 1 KB");
}

} // namespace
} // namespace vexmoor
