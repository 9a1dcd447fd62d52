#include "CliTest.h"

#include "intake/NamedSettings.h"

#include <sstream>

namespace vexmoor::test {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

const Path kShare = VEXMOOR_SHARE;

/// The words of a line, of which the last is being typed, and what they can become. Options and
/// values stand for all their kind; names of files are left to the shells.
struct Case {
    std::vector<std::string> words;
    std::vector<std::string> candidates;
};

std::vector<Case> cases() {
    const auto settings = NamedSettings::names();
    return {
        {{"fe"}, {"feed"}},
        {{""},
         {"feed", "put-back", "delete", "history", "stats", "settings", "integrate", "doctor"}},
        {{"--v"}, {"--version"}},
        {{"feed", "--"}, {"--help", "--mode", "--yes", "--from-menu", "--json"}},
        {{"feed", "--mode", ""}, {"bin", "dissolve"}},
        {{"feed", "--mode", "bin", "--j"}, {"--json"}},
        {{"feed", "stats", "--m"}, {"--mode"}},
        {{"put-back", "--l"}, {"--last"}},
        {{"put-back", "--last", ""}, {}},
        {{"history", ""}, {}},
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
        const char* const script = R"(source "$1"; shift; COMP_WORDS=(vexmoor "$@"); COMP_CWORD=$#
            _vexmoor; ((${#COMPREPLY[@]})) && printf '%s\n' "${COMPREPLY[@]}"; true)";
        words.insert(words.begin(), {"bash", "--norc", "-c", script, "bash",
                                     kShare / "bash-completion/completions/vexmoor"});
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
            program({"fish", "--no-config", "-c", "source $argv[1]; complete -C $argv[2]",
                     kShare / "fish/vendor_completions.d/vexmoor.fish", line})
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
    EXPECT_THAT(bash({"feed", "so"}), IsEmpty()) << "left to readline";
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

TEST_F(CompletionTest, ZshTakesItsFunctionFromTheSearchPath) {
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

TEST_F(CompletionTest, TheManualPageIsCleanAndKnowsEveryCommand) {
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
         {"vexmoor feed [--mode MODE] [--yes] [--from-menu] [--json] PATH ...", "vexmoor put-back",
          "vexmoor delete", "vexmoor history [-n N]", "vexmoor stats",
          "vexmoor settings [--json] [NAME [VALUE]]", "vexmoor integrate", "captureFinderDelete"})
        EXPECT_THAT(plain, testing::HasSubstr(text));
}

} // namespace
} // namespace vexmoor::test
