#include "CliTest.h"

namespace vexmoor::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class DissolveTest : public CliTest {
  protected:
    DissolveTest() { make("folder/file"); }
};

TEST_F(DissolveTest, NeedsATerminalOrYes) {
    const auto refused = vexmoor({"feed", "--mode", "dissolve", "folder"}).input("y\n").run();
    EXPECT_EQ(refused.status, 3) << "input before the question is not an answer";
    EXPECT_THAT(refused.errors, HasSubstr("--yes"));
    EXPECT_TRUE(isThere("folder/file"));
    EXPECT_EQ(json({"stats", "--json"})["count"], 0);

    EXPECT_EQ(run({"feed", "--mode", "dissolve", "--yes", "folder"}).status, 0);
    EXPECT_FALSE(isThere("folder"));
    EXPECT_THAT(binned(), IsEmpty());
    const Json record = json({"history", "--json"})[0];
    EXPECT_EQ(record["mode"], "dissolve");
    EXPECT_FALSE(record.contains("original"));
    EXPECT_EQ(run({"put-back"}).status, 3);
}

TEST_F(DissolveTest, AsksOnATerminalAndObeysTheAnswer) {
    for (const char* const answer : {"n\n", "\n", "\x04", "yolo\n", "dissolve\n"}) {
        const auto declined =
            vexmoor({"feed", "--mode", "dissolve", "folder"}).runOnTerminal(answer);
        EXPECT_EQ(declined.status, 3) << answer;
        EXPECT_THAT(declined.output, HasSubstr("Dissolve this item forever?"));
        EXPECT_THAT(declined.output, HasSubstr("Nothing was touched."));
        EXPECT_TRUE(isThere("folder/file"));
    }
    const auto confirmed = vexmoor({"feed", "--mode", "dissolve", "folder"}).runOnTerminal("y\n");
    EXPECT_EQ(confirmed.status, 0) << confirmed.output;
    EXPECT_FALSE(isThere("folder"));
}

TEST_F(DissolveTest, DoesNotAskIfTheSettingIsOff) {
    ASSERT_EQ(run({"settings", "confirmDissolve", "off"}).status, 0);
    ASSERT_EQ(run({"settings", "mode", "dissolve"}).status, 0);
    const auto result = vexmoor({"feed", "folder"}).runOnTerminal("");
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_THAT(result.output, Not(HasSubstr("?")));
    EXPECT_FALSE(isThere("folder"));
}

TEST_F(DissolveTest, DeletingFromTheBinAsksToo) {
    make("red\x1b[31m");
    ASSERT_EQ(run({"feed", "red\x1b[31m"}).status, 0);
    const auto declined = vexmoor({"delete", "red\x1b[31m"}).runOnTerminal("n\n");
    EXPECT_EQ(declined.status, 3);
    EXPECT_THAT(declined.output, HasSubstr("\u241b[31m"));
    EXPECT_THAT(binned(), testing::SizeIs(1));
    EXPECT_EQ(vexmoor({"delete", "red\x1b[31m"}).runOnTerminal("y\n").status, 0);
    EXPECT_THAT(binned(), IsEmpty());
}

} // namespace
} // namespace vexmoor::test
