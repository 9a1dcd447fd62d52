#include "base/Printable.h"

#include <gtest/gtest.h>

namespace vexmoor::test {

namespace {

TEST(Printable, EscapesOnlyTerminalControls) {
    const struct {
        std::string_view text;
        std::string_view expected;
    } cases[] = {
        {"plain caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x94\xA5",
         "plain caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x94\xA5"},
        {"a\nb\tc\x1b[31m\x7f", "a\\nb\\x09c\\x1b[31m\\x7f"},
        {"\xC2\x80 \xC2\x9B"
         "6n \xC2\x9F \xC2\xA0",
         "\\xc2\\x80 \\xc2\\x9b"
         "6n \\xc2\\x9f \xC2\xA0"},
        {"exe.\xE2\x80\xAEtxt", "exe.\\xe2\\x80\\xaetxt"},
        {"\xD8\x9C\xE2\x80\x8E\xE2\x81\xA6\xE2\x81\xA9",
         "\\xd8\\x9c\\xe2\\x80\\x8e\\xe2\\x81\\xa6\\xe2\\x81\\xa9"},
        {"\xE2\x80\xA8\xE2\x80\xA9", "\\xe2\\x80\\xa8\\xe2\\x80\\xa9"},
        {"\x9B"
         "broken",
         "\xEF\xBF\xBD"
         "broken"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(printable(text), expected);
}

} // namespace

} // namespace vexmoor::test
