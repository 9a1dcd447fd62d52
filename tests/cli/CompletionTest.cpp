#include "CliTest.h"

#include "cli/CommandTable.h"
#include "intake/NamedSettings.h"

#include <sstream>

namespace vexmoor::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

const Path kShare = VEXMOOR_SHARE;

/// The words of a line, the last of which is being typed, and its completions. One option and one
/// value represent all of their kind; the shells complete file names. Newer versions of fish match
/// inside words too, so the prefixes are long enough to match one option.
struct Case {
    std::vector<std::string> words;
    std::vector<std::string> candidates;
};

std::vector<Case> cases() {
    const auto settings = NamedSettings::names();
    return {
        {{"fe"}, {"feed"}},
        {{""}, commandNames()},
        {{"--v"}, {"--version"}},
        {{"feed", "--"},
         {"--help", "--mode", "--yes", "--force", "--recursive", "--verbose", "--quiet",
          "--from-menu", "--json"}},
        {{"feed", "--mode", ""}, {"bin", "dissolve"}},
        {{"feed", "--mode", "bin", "--j"}, {"--json"}},
        {{"feed", "stats", "--mo"}, {"--mode"}},
        {{"put-back", "--la"}, {"--last"}},
        {{"put-back", "--last", ""}, {}},
        {{"history", ""}, {}},
        {{"stats", "--"}, {"--help", "--json"}},
        {{"help", "int"}, {"integrate"}},
        {{"settings", ""}, settings},
        {{"settings", "--json", "mo"}, {"mode"}},
        {{"settings", "mode", ""}, {"bin", "dissolve"}},
        {{"settings", "--", "sound", "of"}, {"off"}},
        {{"settings", "skin", "co"}, {"copper", "cobalt"}},
        {{"settings", "mode", "bin", ""}, {}},
        {{"integrate", ""}, {"install", "remove", "status"}},
        {{"integrate", "install", "pc"}, {"pcmanfm", "pcmanfm-qt"}},
        {{"integrate", "remove", "nemo", "aut"}, {"autostart"}},
    };
}

class CompletionTest : public CliTest {
  protected:
    static std::vector<std::string> lines(const std::string& text) {
        std::vector<std::string> result;
        std::istringstream stream(text);
        for (std::string line; std::getline(stream, line);)
            result.push_back(line);
        return result;
    }

    [[nodiscard]] std::vector<std::string> bash(std::vector<std::string> words) const {
        const char* const script =
            R"(PATH=${2%/*}:$PATH; source "$1"; shift 2; COMP_WORDS=(vexmoor "$@"); COMP_CWORD=$#
            _vexmoor; ((${#COMPREPLY[@]})) && printf '%s\n' "${COMPREPLY[@]}"; true)";
        words.insert(words.begin(), {"bash", "--norc", "-c", script, "bash",
                                     kShare / "bash-completion/completions/vexmoor", m_program});
        const auto result = program(words).run();
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, "");
        return lines(result.output);
    }

    [[nodiscard]] std::vector<std::string> fish(const std::vector<std::string>& words) const {
        std::string line = "vexmoor";
        for (const auto& word : words)
            line += " " + word;
        const auto result =
            program({"fish", "--no-config", "-c",
                     "set PATH (dirname $argv[3]) $PATH; source $argv[1]; complete -C $argv[2]",
                     kShare / "fish/vendor_completions.d/vexmoor.fish", line, m_program})
                .run();
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, "");
        auto candidates = lines(result.output);
        for (auto& candidate : candidates)
            candidate.resize(std::min(candidate.find('\t'), candidate.size()));
        return candidates;
    }
};

TEST_F(CompletionTest, BashCompletesCommandsOptionsAndValues) {
    if (!Command::exists("bash"))
        GTEST_SKIP() << "bash is not installed";
    for (const auto& [words, candidates] : cases())
        EXPECT_THAT(bash(words), UnorderedElementsAreArray(candidates))
            << testing::PrintToString(words);
    EXPECT_THAT(bash({"feed", "--mode", "="}), UnorderedElementsAreArray({"bin", "dissolve"}));
    EXPECT_THAT(bash({"feed", "--mode", "=", "d"}), UnorderedElementsAreArray({"dissolve"}));
    make("some file");
    EXPECT_THAT(bash({"feed", "so"}), IsEmpty()) << "readline completes file names";
}

TEST_F(CompletionTest, FishCompletesCommandsOptionsAndValues) {
    if (!Command::exists("fish"))
        GTEST_SKIP() << "fish is not installed";
    for (const auto& [words, candidates] : cases())
        EXPECT_THAT(fish(words), UnorderedElementsAreArray(candidates))
            << testing::PrintToString(words);
    make("some file");
    EXPECT_THAT(fish({"feed", "so"}), UnorderedElementsAreArray({"some file"}));
    EXPECT_THAT(fish({"history", "so"}), IsEmpty());
    const auto checked =
        program({"fish", "--no-execute", kShare / "fish/vendor_completions.d/vexmoor.fish"}).run();
    EXPECT_EQ(checked.status, 0) << checked.errors;
}

/// The shells start the program by name, so it must be on the search path.
TEST_F(CompletionTest, OffersItemsThatCanBePutBack) {
    const std::vector<std::string> names = {"two words.txt", "$HOME",     "it's \"q\"", "two:parts",
                                            "-rf",           "new\nline", "tab\tulator"};
    std::vector<std::string> feed = {"feed", "--"};
    for (const auto& name : names) {
        make(name);
        feed.push_back(name);
    }
    ASSERT_EQ(run(feed).status, 0);
    const auto offered = [&](const std::string& word) {
        std::vector<std::string> candidates;
        for (const auto& line : lines(run({"complete", "--", word}).output))
            candidates.push_back(line.substr(0, line.find('\t')));
        return candidates;
    };
    EXPECT_THAT(offered(""), testing::ElementsAre(testing::MatchesRegex("[0-9A-F]{8}"),
                                                  testing::MatchesRegex("[0-9A-F]{8}"),
                                                  testing::MatchesRegex("[0-9A-F]{8}"), names[3],
                                                  names[2], names[1], names[0]));
    EXPECT_THAT(offered("two"), testing::ElementsAre(names[3], names[0]));
    EXPECT_THAT(offered(m_files / "two:"), testing::ElementsAre(m_files / names[3]));
    EXPECT_THAT(run({"complete", "--", "two "}).output, HasSubstr("\t4 KB, from "));
    EXPECT_THAT(run({"complete"}).output, HasSubstr("\ttab\\x09ulator, 4 KB, from "));
}

TEST_F(CompletionTest, ShellsQuoteOfferedNames) {
    make("two words.txt");
    make("it's $HOME");
    ASSERT_EQ(run({"feed", "two words.txt", "it's $HOME"}).status, 0);
    if (Command::exists("bash")) {
        EXPECT_THAT(bash({"put-back", "tw"}), UnorderedElementsAreArray({"two\\ words.txt"}));
        EXPECT_THAT(bash({"put-back", "two\\ w"}), UnorderedElementsAreArray({"two\\ words.txt"}));
        EXPECT_THAT(bash({"delete", "--yes", "\"it"}), UnorderedElementsAreArray({"it's \\$HOME"}));
    }
    if (Command::exists("fish")) {
        EXPECT_THAT(fish({"put-back", "tw"}), UnorderedElementsAreArray({"two words.txt"}));
        EXPECT_THAT(fish({"delete", "it"}), UnorderedElementsAreArray({"it's $HOME"}));
    }
    if (Command::exists("zsh")) { // compadd quotes
        const auto result =
            program({"zsh", "-f", "-c",
                     "path=(${2%/*} $path); compdef() {}; compadd() { print -rl -- $names }; "
                     "source $1; PREFIX=$3; _vexmoor_items",
                     "zsh", kShare / "zsh/site-functions/_vexmoor", m_program, "two\\ "})
                .run();
        EXPECT_EQ(result.output, "two words.txt\n") << result.errors;
    }
}

TEST_F(CompletionTest, ZshFindsItsFunctionOnTheSearchPath) {
    if (!Command::exists("zsh"))
        GTEST_SKIP() << "zsh is not installed";
    const auto checked = program({"zsh", "-n", kShare / "zsh/site-functions/_vexmoor"}).run();
    EXPECT_EQ(checked.status, 0) << checked.errors;
    const auto loaded =
        program({"zsh", "-f", "-c",
                 "fpath=($1 $fpath); autoload -Uz compinit; compinit -u -D; "
                 "print $_comps[vexmoor]; autoload +X _vexmoor && print -n ${+functions[_vexmoor]}",
                 "zsh", kShare / "zsh/site-functions"})
            .run();
    EXPECT_EQ(loaded.output, "_vexmoor\n1") << loaded.errors;
}

TEST_F(CompletionTest, TheManualPageIsCleanAndDescribesEveryCommand) {
    if (!Command::exists("mandoc"))
        GTEST_SKIP() << "mandoc is not installed";
    const Path page = kShare / "man/man1/vexmoor.1";
    const auto checked = program({"mandoc", "-T", "lint", "-W", "warning", page}).run();
    EXPECT_EQ(checked.status, 0) << checked.output << checked.errors;
    const auto shown = program({"mandoc", "-T", "utf8", "-O", "width=500", page}).run().output;
    std::string plain;
    for (std::size_t i = 0; i < shown.size(); ++i)
        if (shown[i] == '\b')
            plain.pop_back();
        else
            plain += shown[i];
    for (const char* const text :
         {"vexmoor feed [--mode MODE] [--yes] [--force] [-i] [--recursive] [--verbose] [--quiet] "
          "[--json] [--from-menu] PATH ...",
          "vexmoor put-back [--last N] [--quiet] [--json] [ITEM ...]", "vexmoor delete",
          "vexmoor history [-n N]", "vexmoor stats", "vexmoor settings [--json] [NAME [VALUE]]",
          "vexmoor integrate", "captureFinderDelete"})
        EXPECT_THAT(plain, testing::HasSubstr(text));
}

} // namespace
} // namespace vexmoor::test
