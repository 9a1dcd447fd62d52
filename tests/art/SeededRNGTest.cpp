#include "art/SeededRNG.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

TEST(SeededRNGTest, SameSeedGivesSameNumbers) {
    SeededRNG rng{1};
    EXPECT_EQ(rng.next(), 0x40822041U);
    EXPECT_EQ(rng.next(), 0x100041060c011441U);
    EXPECT_DOUBLE_EQ(rng.uniform(), 0.6059343925285465);
    EXPECT_DOUBLE_EQ(SeededRNG::noise(5, 3, 2), 0.5632366357980617);
}

} // namespace
} // namespace vexmoor
