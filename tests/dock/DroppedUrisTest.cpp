#include "dock/DroppedUris.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using testing::ElementsAre;

TEST(DroppedUrisTest, KeepsOrderAndBytesOfLocalItems) {
    const DroppedUris uris = DroppedUris::fromList("# from a file manager\r\n"
                                                   "file:///tmp/a%20b\r\n"
                                                   "file:///tmp/%FF%23\r\n"
                                                   "https://example.org/c\r\n"
                                                   "\r\n"
                                                   "file://localhost/tmp/d\r\n"
                                                   "file://elsewhere/tmp/e\r\n"
                                                   "file:///tmp/%zz\r\n"
                                                   "trash:///f\r\n"
                                                   "file:///tmp/g");
    EXPECT_THAT(uris.items, ElementsAre("/tmp/a b", "/tmp/\xFF#", "/tmp/d", "/tmp/g"));
    EXPECT_EQ(uris.others, 4);
}

TEST(DroppedUrisTest, AcceptsAnyLineEndings) {
    using namespace std::string_view_literals;
    for (const auto list : {"file:///a\nfile:///b\n"sv, "file:///a\rfile:///b"sv,
                            "file:///a\r\nfile:///b\r\n\0"sv, "\n\nfile:///a\r\n\r\nfile:///b"sv}) {
        const DroppedUris uris = DroppedUris::fromList(list);
        EXPECT_THAT(uris.items, ElementsAre("/a", "/b"));
        EXPECT_EQ(uris.others, 0);
    }
    EXPECT_TRUE(DroppedUris::fromList("").items.empty());
}

TEST(DroppedUrisTest, ReadsManyUris) {
    std::string list;
    for (int i = 0; i < 10000; ++i)
        list += "file:///many/" + std::to_string(i) + "\r\n";
    const DroppedUris uris = DroppedUris::fromList(list);
    ASSERT_EQ(uris.items.size(), 10000U);
    EXPECT_EQ(uris.items.back(), "/many/9999");
}

} // namespace
} // namespace vexmoor
