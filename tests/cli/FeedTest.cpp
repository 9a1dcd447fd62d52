#include "CliTest.h"

#include "base/Path.h"
#include "base/Uuid.h"

namespace vexmoor::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class FeedTest : public CliTest {
  protected:
    /// Checks the format of values that change from run to run and replaces them by placeholders.
    static Json steady(Json document) {
        if (document.is_array() || document.is_object())
            for (auto& [key, value] : document.items())
                value = key == "id" && Uuid::fromString(value.get<std::string>()) ? Json("id")
                        : (key == "date" || key == "restored" || key == "deleted") &&
                                value.is_number() && value.get<double>() > 7e8
                            ? Json("moment")
                        : key.starts_with("iso") && value.get<std::string>() > "2026-"
                            ? Json("iso moment")
                            : steady(value);
        return document;
    }

    [[nodiscard]] Json record(const std::string& name, Json more = Json::object()) const {
        Json json = {{"id", "id"},
                     {"name", name},
                     {"bytes", 4096},
                     {"mode", "bin"},
                     {"date", "moment"},
                     {"original", m_files / name},
                     {"trashed", m_data / "Trash/files" / name}};
        json.update(more);
        json["isoDate"] = "iso moment";
        for (const auto& [key, value] : more.items())
            json[key == "restored" ? "isoRestored" : "isoDeleted"] = "iso moment";
        return json;
    }
};

TEST_F(FeedTest, ReportsEachStageOfAnItemInItsDocuments) {
    make("a");
    const Json none = Json::array();
    EXPECT_EQ(steady(json({"feed", "--json", "a", "missing"})),
              (Json{{"done", {record("a")}},
                    {"failures",
                     {{{"name", "missing"},
                       {"path", m_files / "missing"},
                       {"code", "ENOENT"},
                       {"message", "No such file or directory."},
                       {"cause", {{"operation", "look at"}}},
                       {"error", "No such file or directory."}}}},
                    {"untouched", none},
                    {"unlocked", {"first"}}}));
    EXPECT_EQ(steady(json({"history", "--json"})), Json::array({record("a")}));

    EXPECT_EQ(steady(json({"put-back", "--json", "a", "nothing"})),
              (Json{{"done", {record("a")}},
                    {"failures",
                     {{{"name", "nothing"},
                       {"code", "goneFromBin"},
                       {"message", "nothing is no longer in the Bin."},
                       {"cause", {{"path", "nothing"}}},
                       {"error", "nothing is no longer in the Bin."}}}},
                    {"untouched", none},
                    {"landings", {m_files / "a"}}}));
    EXPECT_EQ(steady(json({"history", "--json"})),
              Json::array({record("a", {{"restored", "moment"}})}));

    EXPECT_EQ(steady(json({"feed", "--json", "a"})),
              (Json{{"done", {record("a")}}, {"failures", none}, {"untouched", none}}));
    EXPECT_EQ(steady(json({"delete", "--yes", "--json", "a"})),
              (Json{{"done", {record("a")}}, {"failures", none}, {"untouched", none}}));
    EXPECT_EQ(
        steady(json({"history", "--json"})),
        Json::array({record("a", {{"deleted", "moment"}}), record("a", {{"restored", "moment"}})}));
    EXPECT_THAT(binned(), IsEmpty());
}

TEST_F(FeedTest, ReturnsTheDocumentedExitStatus) {
    make("a");
    make("b");
    const struct {
        std::vector<std::string> arguments;
        int status;
        const char* output;
        const char* errors;
    } steps[] = {
        {{"feed"}, 2, "", "PATH is missing."},
        {{"put-back"}, 3, "", "nothing to put back"},
        {{"feed", "a", "b"}, 0, "To the Bin: a (4 KB)\nTo the Bin: b (4 KB)\n", ""},
        {{"feed", "a"}, 1, "", "a: No such file or directory."},
        {{"feed", "../files//x", m_files / "y/"}, 1, "", "vexmoor: ../files//x: No such file"},
        {{"feed", "-f", "a"}, 0, "", ""},
        {{"feed", "-rf"}, 0, "", ""},
        {{"put-back", "a", "c"}, 1, "Put back: a", "c is no longer in the Bin."},
        {{"put-back", "a"}, 1, "", "vexmoor: a is no longer in the Bin."},
        {{"delete", "b"}, 3, "", "--yes"},
        {{"delete", "--yes", "b"}, 0, "Deleted from the Bin: b", ""},
        {{"feed", "."}, 1, "", "Use the folder's own name."},
        {{"feed", m_home}, 1, "", "The home folder can't be thrown away."},
        {{"feed", m_data / "Trash"}, 1, "", "This is the Bin itself."},
        {{"--version"}, 0, "vexmoor ", ""},
    };
    for (const auto& [arguments, status, output, errors] : steps) {
        const auto result = run(arguments);
        EXPECT_EQ(result.status, status) << testing::PrintToString(arguments);
        EXPECT_THAT(result.output, HasSubstr(output));
        EXPECT_THAT(result.errors, HasSubstr(errors));
    }
    EXPECT_THAT(namesIn(m_files), ElementsAre("a"));
}

TEST_F(FeedTest, PutsBackTheNewestOrTheWholeLastBatch) {
    const auto names = makeItems(300);
    auto feed = names;
    feed.insert(feed.begin(), "feed");
    const auto fed = run(feed);
    EXPECT_EQ(fed.status, 0) << fed.errors;
    EXPECT_THAT(fed.output, HasSubstr("300 items"));
    EXPECT_EQ(json({"history", "-n", "999", "--json"}).size(), 40U);
    const auto all = json({"history", "--all", "--json"});
    ASSERT_EQ(all.size(), names.size());
    EXPECT_EQ(all[0]["original"], (m_files / "item-299").string());
    EXPECT_EQ(all[299]["original"], (m_files / "item-000").string());
    EXPECT_EQ(json({"history", "--all", "-n", "45", "--json"}).size(), 45U);
    EXPECT_THAT(run({"history", "--all"}).output, HasSubstr("item-007"));

    EXPECT_EQ(run({"put-back", "--last", "2"}).status, 0);
    EXPECT_THAT(namesIn(m_files), ElementsAre("item-298", "item-299"));
    EXPECT_EQ(run({"put-back", "item-007"}).status, 0) << "item-007 is no longer in the history";
    EXPECT_EQ(run({"put-back"}).status, 0);
    EXPECT_THAT(namesIn(m_files), ElementsAreArray(names));
    EXPECT_THAT(namesIn(m_data / "Trash/info"), IsEmpty());
    EXPECT_EQ(run({"put-back"}).status, 3);
}

TEST_F(FeedTest, FindsAnItemByNamePathOrId) {
    make("a");
    make("b");
    ASSERT_EQ(run({"feed", "a", "b"}).status, 0);
    const std::string listed = run({"history", "-n", "1"}).output;
    const std::string id = json({"history", "--json"})[0]["id"];
    ASSERT_THAT(listed, testing::StartsWith(id.substr(0, 8)));
    EXPECT_EQ(run({"put-back", id.substr(0, 7)}).status, 1) << "the prefix is too short";
    const auto back = run({"put-back", id.substr(0, 8), "b", id});
    EXPECT_EQ(back.status, 0) << back.errors << "all three mean the same item";
    EXPECT_THAT(namesIn(m_files), ElementsAre("b"));
    EXPECT_FALSE(json({"history", "--json"})[0].contains("lost"));
}

TEST_F(FeedTest, KeepsAFileInThePlaceOfAnItemThatIsPutBack) {
    make("a", "old");
    ASSERT_EQ(run({"feed", "a"}).status, 0);
    make("a", "new");
    const auto result = run({"put-back", "--json"});
    EXPECT_EQ(result.status, 0) << result.errors;
    const Path landing = Json::parse(result.output)["landings"][0].get<std::string>();
    EXPECT_NE(landing, m_files / "a");
    EXPECT_EQ(contents(landing), "old");
    EXPECT_EQ(contents(m_files / "a"), "new");
}

TEST_F(FeedTest, CountsEveryItemInTheStats) {
    EXPECT_THAT(run({"history"}).output, HasSubstr("hungry"));
    make("a");
    make("b");
    ASSERT_EQ(run({"feed", "a", "b"}).status, 0);
    const auto stats = json({"stats", "--json"});
    EXPECT_EQ(stats["count"], 2);
    EXPECT_EQ(stats["bytes"], 8192);
    EXPECT_EQ(stats["today"], (Json{{"count", 2}, {"bytes", 8192}}));
    EXPECT_EQ(stats["week"].size(), 7U);
    EXPECT_EQ(stats["streak"], 1);
    EXPECT_EQ(stats["achievements"]["unlocked"], Json::array({"first"}));
    EXPECT_EQ(stats["skin"], "iron");
    EXPECT_THAT(run({"stats"}).output, HasSubstr("2 sacrifices"));
}

TEST_F(FeedTest, AcceptsHostileNames) {
    const std::vector<std::string> names = {
        "new\nline", "-rf", "--json", "\x1b[31mred\x07",    "broken\xff\xfe", "[a]", " ",
        "feed",      "%%",  "--",     std::string(255, 'x')};
    for (const auto& name : names)
        make(name);
    make("a");
    std::vector<std::string> feed = {"feed", "--"};
    feed.insert(feed.end(), names.begin(), names.end());
    const auto fed = run(feed);
    EXPECT_EQ(fed.status, 0) << fed.errors;
    EXPECT_THAT(namesIn(m_files), ElementsAre("a"));
    for (const auto& text : {fed.output, run({"history"}).output}) {
        EXPECT_THAT(text, Not(HasSubstr("\x1b")));
        EXPECT_THAT(text, Not(HasSubstr("\xff")));
    }
    EXPECT_THAT(run({"history"}).output, HasSubstr("\\x1b[31mred\\x07"));

    const auto history = json({"history", "--json"});
    ASSERT_EQ(history.size(), names.size());
    EXPECT_EQ(history[6]["name"], "broken\uFFFD\uFFFD");
    EXPECT_EQ(pathFromJsonText(history[6]["original"].get<std::string>()), m_files / names[4]);

    EXPECT_EQ(run({"put-back", "new\nline", "[a]", "--", "-rf", "--"}).status, 0);
    EXPECT_EQ(run({"put-back"}).status, 0);
    for (const auto& name : names)
        EXPECT_TRUE(isThere(name)) << name;
    const auto gone = run({"feed", "--", "\x1b[2J"});
    EXPECT_EQ(gone.status, 1);
    EXPECT_THAT(gone.errors, HasSubstr("\\x1b[2J: No such file"));
    const auto usage = run({"feed", "--\x1b[2J"});
    EXPECT_EQ(usage.status, 2);
    EXPECT_THAT(usage.errors, Not(HasSubstr("\x1b")));
}

TEST_F(FeedTest, ReplacesRm) {
    const auto names = makeItems(12);
    auto feed = names;
    feed.insert(feed.begin(), {"feed", "-rfv", "missing"});
    const auto named = run(feed);
    EXPECT_EQ(named.status, 0) << named.errors;
    EXPECT_THAT(named.output, HasSubstr("To the Bin: item-011 (4 KB)\n"));
    ASSERT_EQ(run({"put-back", "-q"}).output, "");
    feed[1] = "--quiet";
    const auto quiet = run(feed);
    EXPECT_EQ(quiet.status, 1);
    EXPECT_EQ(quiet.output + quiet.errors, "vexmoor: missing: No such file or directory.\n");
    const auto json = Json::parse(run({"feed", "-f", "--json", "missing"}).output);
    EXPECT_THAT(json["failures"], IsEmpty());
}

TEST_F(FeedTest, AsksBeforeEachItemIfAskedTo) {
    make("a");
    make("b");
    EXPECT_EQ(run({"feed", "-i", "a", "b"}).status, 3) << "there is no terminal";
    EXPECT_EQ(vexmoor({"feed", "-i", "a", "b"}).runOnTerminal("n\nn\n").status, 3);
    EXPECT_THAT(binned(), IsEmpty());
    const auto asked = vexmoor({"feed", "-i", "a", "missing", "b"}).runOnTerminal("n\ny\n");
    EXPECT_EQ(asked.status, 1) << asked.output;
    EXPECT_THAT(asked.output, HasSubstr("Feed b? [y/N]"));
    EXPECT_THAT(asked.output, HasSubstr("missing: No such file"));
    EXPECT_THAT(asked.output, Not(HasSubstr("Feed missing")));
    EXPECT_THAT(binned(), ElementsAre("b"));
}

TEST_F(FeedTest, UsesColoursAndAnnouncesAchievementsOnlyOnATerminal) {
    make("a");
    make("b");
    EXPECT_EQ(run({"feed", "a"}).errors, "") << "the first achievement";
    const auto coloured = vexmoor({"history"}).runOnTerminal("");
    EXPECT_THAT(coloured.output, HasSubstr("\x1b[32mIn the Bin"));
    for (const auto& [variable, value] : {std::pair("NO_COLOR", "1"), {"TERM", "dumb"}})
        EXPECT_THAT(vexmoor({"history"}).with(variable, value).runOnTerminal("").output,
                    Not(HasSubstr("\x1b")));
    EXPECT_THAT(run({"history"}).output, Not(HasSubstr("\x1b")));
    EXPECT_EQ(vexmoor({"feed", "missing"}).runOnTerminal("").output,
              "\x1b[31mvexmoor:\x1b[m missing: No such file or directory.\r\n");
    ASSERT_EQ(run({"delete", "--yes", "a"}).status, 0);
    EXPECT_THAT(run({"history"}).output, HasSubstr("  Deleted from the Bin "));
}

TEST_F(FeedTest, ReportsThatItsOutputCannotBeWritten) {
    const auto result =
        program({"/bin/sh", "-c", m_program.native() + " history >/dev/full"}).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("could be written"));
}

} // namespace
} // namespace vexmoor::test
