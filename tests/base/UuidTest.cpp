#include "base/Uuid.h"

#include <gtest/gtest.h>

namespace vexmoor::test {
namespace {

TEST(Uuid, ParsesEitherCaseAndWritesUpperCase) {
    const auto uuid = Uuid::fromString("0f8fad5b-D9CB-469f-a165-70867728950e");
    ASSERT_TRUE(uuid);
    EXPECT_EQ(uuid->toString(), "0F8FAD5B-D9CB-469F-A165-70867728950E");
    for (const char* text :
         {"", "0F8FAD5B-D9CB-469F-A165-70867728950", // one character short
          "0F8FAD5BD9CB469FA16570867728950E",        // no hyphens
          "0F8FAD5B-D9CB-469F-A165-70867728950G", "{0F8FAD5B-D9CB-469F-A165-70867728950E}",
          "0F8FAD5B-D9CB-469F-A165-70867728950E\n"})
        EXPECT_FALSE(Uuid::fromString(text)) << text;
}

TEST(Uuid, IsRandomOfVersionFour) {
    const auto one = Uuid::generate();
    EXPECT_NE(one, Uuid::generate());
    EXPECT_EQ(one.toString().at(14), '4');
    EXPECT_EQ(Uuid::fromString(one.toString()), one);
}

} // namespace
} // namespace vexmoor::test
