#include "integration/ThunarActions.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

constexpr const char* kOurs = "<action>\n\t<unique-id>vexmoor-feed</unique-id>\n"
                              "\t<command>vexmoor feed -- %F</command>\n</action>";

TEST(ThunarActions, AddsAndRemovesOnlyOurAction) {
    const struct {
        std::string before;
        std::string after;
    } cases[] = {
        {"<actions>\n</actions>\n", "<actions>\n" + std::string(kOurs) + "\n</actions>\n"},
        {"<?xml version=\"1.0\"?><!DOCTYPE actions [\n<!ELEMENT actions (action)+>]>"
         "<!-- </actions> --><actions >  <action><name>\xC3\xA9 &lt;</name><unique-id>1-2"
         "</unique-id><command><![CDATA[</actions>]]></command></action>\t</actions ><!-- end -->",
         "<?xml version=\"1.0\"?><!DOCTYPE actions [\n<!ELEMENT actions (action)+>]>"
         "<!-- </actions> --><actions >  <action><name>\xC3\xA9 &lt;</name><unique-id>1-2"
         "</unique-id><command><![CDATA[</actions>]]></command></action>\t" +
             std::string(kOurs) + "\n</actions ><!-- end -->"},
    };
    for (const auto& [before, after] : cases) {
        const auto actions = ThunarActions::parse(before);
        ASSERT_TRUE(actions) << before;
        EXPECT_EQ(actions->command(), std::nullopt);
        EXPECT_EQ(actions->without(), before);
        EXPECT_EQ(actions->with(kOurs), after);

        const auto merged = ThunarActions::parse(after);
        ASSERT_TRUE(merged) << after;
        EXPECT_EQ(merged->command(), "vexmoor feed -- %F");
        EXPECT_EQ(merged->with(kOurs), after) << "a second time changes nothing";
        EXPECT_EQ(merged->without(), before);
    }
    EXPECT_EQ(ThunarActions::parse("<actions/>")->with(kOurs),
              "<actions>\n" + std::string(kOurs) + "\n</actions>");
}

TEST(ThunarActions, FindsOurActionInARewrittenFile) {
    const std::string before = "<actions><action><command>a</command><unique-id>1</unique-id>"
                               "</action>";
    const std::string ours = "<action><command>\n other %F</command><name>Mine</name><unique-id>\n"
                             "vexmoor-feed </unique-id></action>";
    const std::string after = "<action><unique-id>vexmoor-feed-2</unique-id></action></actions>";
    const auto actions = ThunarActions::parse(before + ours + after);
    ASSERT_TRUE(actions);
    EXPECT_EQ(actions->command(), "other %F");
    EXPECT_EQ(actions->with(kOurs), before + kOurs + after);
    EXPECT_EQ(actions->without(), before + after);
}

TEST(ThunarActions, RejectsOtherFiles) {
    for (const char* const text :
         {"", "no markup", "<actions>", "<actions><action></actions>", "<other></other>",
          "<actions></actions><actions></actions>", "<actions></action></actions>",
          "<actions><!-- </actions>", "<actions><action</actions>", "<actions></actions",
          "</actions>", "<actions><></actions>", "\xFF\xFE<\0a"})
        EXPECT_FALSE(ThunarActions::parse(text)) << text;
}

} // namespace
} // namespace vexmoor
