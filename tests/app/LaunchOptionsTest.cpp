#include "app/LaunchOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using testing::ElementsAre;

LaunchOptions parse(const std::vector<std::string>& arguments) {
    return LaunchOptions::fromArguments(arguments, "/here");
}

TEST(LaunchOptionsTest, AcceptsPathsAndUrisByteForByte) {
    const auto options = parse({"a b", "/c/", "file:///tmp/%FE%0A", "x:y", "./", "sftp://host/f",
                                "", "--", "", "-d", "http://e"});
    EXPECT_THAT(options.items, ElementsAre("/here/a b", "/c/", "/tmp/\xFE\n", "/here/x:y",
                                           "/here/./", "/here/-d", "/here/http://e"));
    EXPECT_EQ(options.others, 1) << "the item that is not on this computer";
    EXPECT_EQ(options.unknown, "");
}

TEST(LaunchOptionsTest, ParsesOptionsAndReportsTheFirstUnknownOne) {
    EXPECT_TRUE(parse({"--probe"}).probe);
    EXPECT_TRUE(parse({"--version"}).version);
    EXPECT_TRUE(parse({"-h"}).help && parse({"--help"}).help);
    const auto options = parse({"--background", "--delete", "-x"});
    EXPECT_TRUE(options.background);
    EXPECT_EQ(options.unknown, "--delete");
}

TEST(LaunchOptionsTest, OpensNoWindowWhenRestoredByASessionManager) {
    const auto options = parse({"-session", "10a3", "--", "-session"});
    EXPECT_TRUE(options.background);
    EXPECT_THAT(options.items, ElementsAre("/here/-session"));
    EXPECT_EQ(options.unknown, "");
}

} // namespace
} // namespace vexmoor
