#include "integration/Quoting.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

TEST(Quoting, QuotesForEachSyntax) {
    const struct {
        const char* word;
        const char* shell;
        const char* desktopExec;
        const char* xml;
    } cases[] = {
        {"/usr/bin/vexmoor", "/usr/bin/vexmoor", "/usr/bin/vexmoor", "/usr/bin/vexmoor"},
        {"", "''", "\"\"", ""},
        {"a b", "'a b'", "\"a b\"", "a b"},
        {"it's", "'it'\\''s'", "\"it's\"", "it&apos;s"},
        {"50%<&>", "'50%<&>'", "\"50%%<&>\"", "50%&lt;&amp;&gt;"},
        // The quoting's escapes, escaped again as a value of the file.
        {"$`\"\\", "'$`\"\\'", R"("\\$\\`\\"\\\\")", "$`&quot;\\"},
    };
    for (const auto& [word, shell, desktopExec, xml] : cases) {
        EXPECT_EQ(shellQuoted(word), shell);
        EXPECT_EQ(desktopExecQuoted(word), desktopExec);
        EXPECT_EQ(xmlEscaped(word), xml);
    }
    EXPECT_EQ(percentDoubled("%F 100%"), "%%F 100%%");
    EXPECT_EQ(keyFileEscaped("a\\b"), "a\\\\b");
}

} // namespace
} // namespace vexmoor
