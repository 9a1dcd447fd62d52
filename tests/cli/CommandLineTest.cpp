#include "cli/CommandLine.h"

#include "cli/ExitStatus.h"

#include <CLI/CLI.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

ParsedCommandLine parse(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "vexmoor");
    return parseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

TEST(CommandLine, TakesNamesOfFilesAsTheyAre) {
    const auto parsed = parse({"feed", "--mode", "bin", "[a,b]", "{}", "{a,b}", "%%", "\x1a", "a b",
                               "stats", "--", "--json", "-x", "--", "[a]"});
    ASSERT_TRUE(parsed.invocation) << parsed.error;
    EXPECT_THAT(parsed.invocation->items, ElementsAre("[a,b]", "{}", "{a,b}", "%%", "\x1a", "a b",
                                                      "stats", "--json", "-x", "--", "[a]"));
    EXPECT_EQ(parsed.invocation->mode, "bin");
    EXPECT_FALSE(parsed.invocation->json);

    const auto alone = parse({"feed", "{}"});
    ASSERT_TRUE(alone.invocation) << alone.error;
    EXPECT_THAT(alone.invocation->items, ElementsAre("{}"));

    const auto item = parse({"put-back", "[a]"});
    ASSERT_TRUE(item.invocation) << item.error;
    EXPECT_THAT(item.invocation->items, ElementsAre("[a]"));
}

TEST(CommandLine, DecodesFileUrisOnlyOfWhatIsFed) {
    const auto fed = parse({"feed", "file:///a%20b%0Ac", "file:///broken%zz", "sftp://host/a"});
    ASSERT_TRUE(fed.invocation) << fed.error;
    EXPECT_THAT(fed.invocation->items,
                ElementsAre("/a b\nc", "file:///broken%zz", "sftp://host/a"));
    const auto named = parse({"put-back", "file:///a"});
    ASSERT_TRUE(named.invocation) << named.error;
    EXPECT_THAT(named.invocation->items, ElementsAre("file:///a"));
}

TEST(CommandLine, RefusesWhatIsNotClearlyMeant) {
    const struct {
        std::vector<const char*> arguments;
        const char* error;
    } cases[] = {
        {{"feed"}, "PATH is required"},
        {{"feed", "a", ""}, "is empty. Nothing was touched"},
        {{"feed", "a", "--jsno"}, "--jsno"},
        {{"feed", "--mode", "burn", "a"}, "burn not in {bin,dissolve}"},
        {{"feed", "--mode", "[bin]", "a"}, "[bin] not in {bin,dissolve}"},
        {{"put-back", "--last", "0"}, "0"},
        {{"put-back", "--last", "2", "name"}, "excludes"},
        {{"delete"}, "ITEM is required"},
        {{"history", "-n", "-3"}, "-3"},
        {{"settings", "volume"}, "volume not in {mode,"},
        {{"settings", "sound", ""}, "is empty"},
        {{"settings", "sound", "on", "off"}, "off"},
        {{"integrate", "everything"}, "everything not in {install,remove,status}"},
        {{"fly"}, "fly"},
        {{"feed", "--\x1b[31m", "a"}, "--\\x1b[31m"},
    };
    for (const auto& [arguments, error] : cases) {
        const auto parsed = parse(arguments);
        EXPECT_FALSE(parsed.invocation) << error;
        EXPECT_EQ(parsed.status, kUsage) << error;
        EXPECT_THAT(parsed.error, HasSubstr(error));
        EXPECT_EQ(parsed.output, "");
    }
}

TEST(CommandLine, HelpsWithOneCommandAsThoughAllHadBeenDescribed) {
    Invocation invocation;
    const auto all = describeCommands(invocation);
    const auto commands = all->get_subcommands([](const CLI::App*) { return true; });
    EXPECT_EQ(commands.size(), 8U);
    for (const auto* command : commands)
        EXPECT_EQ(parse({command->get_name().c_str(), "--help"}).output, command->help("vexmoor"));
    EXPECT_EQ(parse({"--help"}).output, all->help());
    EXPECT_EQ(parse({"--help", "feed"}).output, parse({"feed", "--help"}).output);
}

} // namespace
} // namespace vexmoor
