#include "cli/CommandLine.h"

#include "cli/Columns.h"
#include "cli/CommandTable.h"
#include "cli/ExitStatus.h"
#include "cli/Help.h"
#include "cli/Suggestion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace vexmoor {
namespace {

using testing::ElementsAre;

ParsedCommandLine parse(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "vexmoor");
    return parseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

TEST(CommandLine, TakesFileNamesLiterally) {
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

TEST(CommandLine, DecodesFileUrisOnlyForFeed) {
    const auto fed = parse({"feed", "file:///a%20b%0Ac", "file:///broken%zz", "sftp://host/a"});
    ASSERT_TRUE(fed.invocation) << fed.error;
    EXPECT_THAT(fed.invocation->items,
                ElementsAre("/a b\nc", "file:///broken%zz", "sftp://host/a"));
    const auto named = parse({"put-back", "file:///a"});
    ASSERT_TRUE(named.invocation) << named.error;
    EXPECT_THAT(named.invocation->items, ElementsAre("file:///a"));
}

TEST(CommandLine, TakesOptionsInEveryForm) {
    const auto fed = parse({"feed", "a", "-rfv", "--mode=bin", "-q", "b"});
    ASSERT_TRUE(fed.invocation) << fed.error;
    EXPECT_THAT(fed.invocation->items, ElementsAre("a", "b"));
    EXPECT_TRUE(fed.invocation->force && fed.invocation->recursive && fed.invocation->quiet);
    EXPECT_FALSE(fed.invocation->verbose) << "the last of -v and -q takes effect";
    EXPECT_FALSE(parse({"feed", "-i", "-f", "a"}).invocation->asksEach);
    EXPECT_FALSE(parse({"feed", "-fi", "a"}).invocation->force);
    EXPECT_TRUE(parse({"feed", "-f"}).invocation) << "like rm";
    EXPECT_EQ(parse({"history", "-n5"}).invocation->number, 5U);
    EXPECT_EQ(parse({"history", "-n", "7", "--all"}).invocation->number, 7U);
    EXPECT_THAT(parse({"feed", "-"}).invocation->items, ElementsAre("-"));
    EXPECT_THAT(parse({"integrate", "install", "kio"}).invocation->items, ElementsAre("kio"));
    EXPECT_EQ(parse({"--probe"}).invocation->command, Invocation::Command::probe);
    EXPECT_EQ(parse({}).invocation->command, Invocation::Command::open);
}

TEST(CommandLine, ReportsUsageErrorsAndWhereHelpIs) {
    const std::string number = " takes a whole number of 1 or more.";
    const std::string tooLong(5000, 'x');
    const struct {
        std::vector<const char*> arguments;
        std::string sentence;
        const char* help = "vexmoor";
    } cases[] = {
        {{"fed", "x"}, "fed is no command. Did you mean feed?"},
        {{"restore"}, "restore is no command. Did you mean put-back?"},
        {{"version"}, "version is no command. Did you mean --version?"},
        {{"fly"}, "fly is no command."},
        {{""}, "COMMAND is empty. Nothing was touched."},
        {{"/dev/null"},
         "/dev/null is no command. To feed the file with that name: vexmoor feed /dev/null"},
        {{tooLong.c_str()}, tooLong + " is no command."},
        {{"--versoin"}, "--versoin is no option. Did you mean --version?"},
        {{"--json", "history"}, "--json goes after a command."},
        {{"--probe", "feed"}, "--probe and feed can't be given together."},
        {{"help", "fed"}, "fed is no command. Did you mean feed?"},
        {{"feed"}, "PATH is missing.", "vexmoor feed"},
        {{"feed", "--"}, "PATH is missing.", "vexmoor feed"},
        {{"feed", "a", ""}, "PATH is empty. Nothing was touched.", "vexmoor feed"},
        {{"feed", "a", "--jsn"},
         "--jsn is no option of feed. Did you mean --json?",
         "vexmoor feed"},
        {{"feed", "a", "-json"},
         "-json is no option of feed. Did you mean --json?",
         "vexmoor feed"},
        {{"feed", "a", "-rx"}, "-rx is no option of feed.", "vexmoor feed"},
        {{"feed", "--json=yes", "a"}, "--json takes no value.", "vexmoor feed"},
        {{"feed", "--\x1b[2J", "a"}, "--\\x1b[2J is no option of feed.", "vexmoor feed"},
        {{"feed", "--mode", "trash", "a"}, "--mode can be: bin, dissolve.", "vexmoor feed"},
        {{"feed", "a", "--mode"}, "--mode can be: bin, dissolve.", "vexmoor feed"},
        {{"feed", "--mode=bni", "a"},
         "--mode can be: bin, dissolve. Did you mean bin?",
         "vexmoor feed"},
        {{"feed", "--from-menu", "--yes"},
         "--from-menu and --yes can't be given together.",
         "vexmoor feed"},
        {{"put-back", "--last", "2", "name"},
         "--last and ITEM can't be given together.",
         "vexmoor put-back"},
        {{"delete"}, "ITEM is missing.", "vexmoor delete"},
        {{"history", "-n"}, "-n" + number, "vexmoor history"},
        {{"history", "-n", "0"}, "-n" + number, "vexmoor history"},
        {{"history", "-n", "-1"}, "-n" + number, "vexmoor history"},
        {{"history", "-n", "1.5"}, "-n" + number, "vexmoor history"},
        {{"history", "-n1e9"}, "-n" + number, "vexmoor history"},
        {{"history", "-n", "99999999999999999999"}, "-n" + number, "vexmoor history"},
        {{"put-back", "--last", "0"}, "--last" + number, "vexmoor put-back"},
        {{"stats", "one", "two"}, "stats got too many arguments: one two", "vexmoor stats"},
        {{"settings", "sond"}, "sond is no setting. Did you mean sound?", "vexmoor settings"},
        {{"settings", "kio"},
         "kio is no setting. NAME can be: mode, confirmDissolve, sound, escapeDock, "
         "captureFinderDelete, showMenuBarIcon, skin.",
         "vexmoor settings"},
        {{"settings", "sound", ""}, "VALUE is empty. Nothing was touched.", "vexmoor settings"},
        {{"settings", "sound", "on", "off"},
         "settings got too many arguments: off",
         "vexmoor settings"},
        {{"integrate", "instal"},
         "instal is no action. Did you mean install?",
         "vexmoor integrate"},
        {{"integrate", "remove", "nemo", "nautlus"},
         "nautlus is no id. Did you mean nautilus?",
         "vexmoor integrate"},
    };
    for (const auto& [arguments, sentence, help] : cases) {
        const auto parsed = parse(arguments);
        EXPECT_FALSE(parsed.invocation) << sentence;
        EXPECT_EQ(parsed.status, kUsage) << sentence;
        EXPECT_EQ(parsed.error, "vexmoor: " + sentence + "\nTry '" + help + " --help'.\n");
        EXPECT_EQ(parsed.output, "");
    }
}

TEST(CommandLine, SuggestsOnlyCloseMatches) {
    const std::vector<std::string> words = {"feed", "put-back", "history", "on", "off"};
    for (const auto& [typed, meant] : {std::pair("fed", "feed"),
                                       {"FEED", "feed"},
                                       {"efed", "feed"},
                                       {"putback", "put-back"},
                                       {"hist", "history"},
                                       {"of", "off"},
                                       {"f", ""},
                                       {"foot", ""},
                                       {"burn", ""},
                                       {"", ""}})
        EXPECT_EQ(nearest(typed, words), meant) << typed;
}

TEST(CommandLine, PrintsHelpForEverySpelling) {
    const auto& program = programDescription();
    for (const auto& arguments : {std::vector<const char*>{"--help"}, {"-h"}, {"help"}})
        EXPECT_EQ(parse(arguments).output, helpText(program, 80)) << arguments.front();
    for (const auto& command : commandDescriptions()) {
        const std::string name(command.name);
        for (const auto& arguments : {std::vector<const char*>{name.c_str(), "--help"},
                                      {name.c_str(), "-h", "--wrong"},
                                      {"--help", name.c_str()}})
            EXPECT_EQ(parse(arguments).output, helpText(command, 80)) << name;
        EXPECT_EQ(parse({"help", name.c_str()}).output, helpText(command, 80)) << name;
    }
    EXPECT_EQ(parse({"-V"}).output, parse({"--version"}).output);
    EXPECT_THAT(parse({"-V"}).output, testing::StartsWith("vexmoor "));
}

TEST(CommandLine, WrapsHelpAtTheGivenWidth) {
    for (const auto& command : commandDescriptions())
        for (const std::size_t width : {60U, 80U, 100U}) {
            std::istringstream lines(helpText(command, width));
            for (std::string line; std::getline(lines, line);) {
                EXPECT_LE(characters(line), width) << line;
                EXPECT_FALSE(line.ends_with(' ')) << line;
            }
        }
    EXPECT_EQ(helpText(*commandNamed("history"), 60), R"(Usage: vexmoor history [OPTION]...

Show the recent sacrifices, newest first, and their fate.

Options:
  -n N        How many at most
      --all   After them, all others that can still be put
              back
      --json  Print one JSON document
  -h, --help  Print this help

Examples:
  vexmoor history -n 5          the five newest
  vexmoor history --all | less  everything that can be put
                                back too
)");
}

} // namespace
} // namespace vexmoor
