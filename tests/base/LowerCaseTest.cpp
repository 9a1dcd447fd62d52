#include "base/LowerCase.h"

#include <gtest/gtest.h>

namespace vexmoor::test {
namespace {

TEST(LowerCase, ConvertsAllLettersInAnyLocale) {
    const struct {
        const char* text;
        const char* lower;
    } cases[] = {
        {"", ""},         {"JPG", "jpg"},       {"@AZ[`az{", "@az[`az{"},
        {"ÄÖß7", "äöß7"}, {"ΔΟΚ", "δοκ"},       {"ФАЙЛ", "файл"},
        {"Ⱥ", "ⱥ"},                             // grows by a byte
        {"文A", "文a"},   {"A\xFFÄ", "a\xFFÄ"}, // not UTF-8
    };
    for (const auto& test : cases)
        EXPECT_EQ(lowercased(test.text), test.lower);
}

} // namespace
} // namespace vexmoor::test
