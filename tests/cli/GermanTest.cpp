#include "CliTest.h"

#include <algorithm>

namespace vexmoor::test {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;

/// Runs the program in German: in a locale that the test creates if possible, otherwise by the
/// LANGUAGE variable, which needs no locale.
struct GermanTest : CliTest {
    [[nodiscard]] Command german(const std::vector<std::string>& arguments) const {
        auto command = vexmoor(arguments);
        command.with("LC_ALL", "").with("LANG", "de_DE.UTF-8");
        return command;
    }

    /// True if the locale could be created.
    [[nodiscard]] bool makeLocale() const {
        if (!Command::exists("localedef"))
            return false;
        return Command({"localedef", "--no-archive", "-i", "de_DE", "-f", "UTF-8",
                        (m_scratch / "de_DE.UTF-8").native()})
                   .run()
                   .status == 0;
    }
};

TEST_F(GermanTest, TranslatesWithoutTheLocale) {
    make("notizen.txt", std::string(1'300'000, 'x'));
    const auto fed = german({"feed", "notizen.txt", "nichts"}).run();
    EXPECT_EQ(fed.output, "In den Papierkorb: notizen.txt (1,3 MB)\n");
    EXPECT_THAT(fed.errors, HasSubstr("nichts: Datei oder Verzeichnis nicht gefunden.\n"));
    EXPECT_THAT(german({"history"}).run().output,
                MatchesRegex("[0-9A-F]+  [0-9.]+ [0-9:]+  Im Papierkorb +1,3 MB  notizen.txt  aus "
                             ".*/files\n"));
    EXPECT_THAT(run({"history"}).output, HasSubstr("In the Bin"))
        << "other languages fall back to English";
    auto english = vexmoor({"history"});
    english.with("LANG", "en_GB.UTF-8").with("LC_ALL", "").with("LANGUAGE", "en:de");
    EXPECT_EQ(english.run().output, run({"history"}).output);
}

TEST_F(GermanTest, FormatsNumbersAndDatesByTheLocale) {
    if (!makeLocale())
        GTEST_SKIP() << "the German locale can't be made here";
    make("a", std::string(1'300'000, 'x'));
    ASSERT_EQ(run({"feed", "a"}).status, 0);
    auto mixed = vexmoor({"history"});
    mixed.with("LOCPATH", m_scratch.path()).with("LC_ALL", "").with("LANG", "C.UTF-8");
    mixed.with("LC_NUMERIC", "de_DE.UTF-8").with("LC_TIME", "de_DE.UTF-8");
    EXPECT_THAT(
        mixed.run().output,
        MatchesRegex("[0-9A-F]+  [0-9]+\\.[0-9]+\\.[0-9]+ [0-9:]+  In the Bin +1,3 MB  a .*\n"));
}

TEST_F(GermanTest, HasNoGermanInItsDocuments) {
    make("a", std::string(1'300'000, 'x'));
    const auto fed = german({"feed", "--json", "a", "missing"}).run();
    EXPECT_EQ(Json::parse(fed.output)["failures"][0]["message"], "No such file or directory.");
    const auto put = german({"put-back", "--json", "nothing"}).run();
    EXPECT_EQ(Json::parse(put.output)["failures"][0]["message"],
              "nothing is no longer in the Bin.");
    const auto refused = german({"settings", "--json", "skin", "gold"}).run();
    EXPECT_EQ(Json::parse(refused.output),
              (Json{{"error", "The Gold cauldron is still locked."},
                    {"code", "settingLocked"},
                    {"message", "The Gold cauldron is still locked."}}));
    EXPECT_EQ(refused.errors, "vexmoor: Der Kessel „Gold“ ist noch gesperrt.\n");
    for (const char* command : {"history", "stats", "settings"})
        EXPECT_EQ(german({command, "--json"}).run().output, run({command, "--json"}).output)
            << command;
}

} // namespace
} // namespace vexmoor::test
