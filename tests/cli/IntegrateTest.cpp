#include "CliTest.h"

#include "base/Path.h"

#include <sys/stat.h>

namespace vexmoor::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAreArray;

class IntegrateTest : public CliTest {
  protected:
    [[nodiscard]] std::map<std::string, Path> places() const {
        return {{"nautilus", m_data / "nautilus/scripts/Feed to Vexmoor"},
                {"caja", m_config / "caja/scripts/Feed to Vexmoor"},
                {"nemo", m_data / "nemo/actions/vexmoor-feed.nemo_action"},
                {"thunar", m_config / "Thunar/uca.xml"},
                {"kio", m_data / "kio/servicemenus/vexmoor-feed.desktop"},
                {"pcmanfm", m_data / "file-manager/actions/vexmoor-feed.desktop"},
                {"autostart", m_config / "autostart/org.vexmoor.Vexmoor.desktop"}};
    }

    [[nodiscard]] std::map<std::string, std::string> statuses() const {
        std::map<std::string, std::string> result;
        const Json document = json({"integrate", "--json"});
        for (const auto& row : document["integrations"])
            result[row["id"]] = row["status"];
        EXPECT_EQ(result.size(), places().size());
        return result;
    }

    /// The program, and one in place of the desktop's, in a folder with this name.
    void installPrograms(const std::string& folder) {
        const Path programs = m_scratch / folder;
        std::filesystem::create_directories(programs);
        std::filesystem::copy_file(m_program, programs / "vexmoor");
        std::filesystem::copy_file("/bin/true", programs / "vexmoor-desktop");
        m_program = programs / "vexmoor";
    }
};

TEST_F(IntegrateTest, InstallsTellsAndRemovesAllOfThem) {
    installPrograms("bin");
    EXPECT_THAT(statuses(), testing::Each(testing::Pair(testing::_, "not installed")));
    EXPECT_EQ(run({"integrate", "install"}).status, 0);
    const auto document = json({"integrate", "status", "--json"});
    Json expected = {{"integrations", Json::array()}, {"failures", Json::array()}};
    for (const char* const id :
         {"nautilus", "caja", "nemo", "thunar", "kio", "pcmanfm", "autostart"}) {
        const Path file = places().at(id);
        expected["integrations"].push_back({{"id", id}, {"file", file}, {"status", "installed"}});
        EXPECT_THAT(contents(file), HasSubstr(m_scratch / "bin/vexmoor"));
    }
    EXPECT_EQ(document, expected);
    EXPECT_THAT(
        contents(places()["autostart"]),
        HasSubstr("\nExec=" + (m_scratch / "bin/vexmoor-desktop").native() + " --background\n"));
    EXPECT_EQ(run({"integrate", "remove"}).status, 0);
    for (const auto& [id, file] : places())
        EXPECT_EQ(std::filesystem::exists(file), id == "thunar") << id;
    EXPECT_EQ(run({"integrate", "remove"}).status, 0) << "there is nothing more to do";
}

TEST_F(IntegrateTest, LeavesFilesAloneThatAreNotOurs) {
    installPrograms("bin");
    for (const auto& [id, file] : places())
        m_scratch.write(file.lexically_relative(m_scratch.path()), "mine");
    std::filesystem::remove(places()["nemo"]);
    std::filesystem::create_symlink("/dev/null", places()["nemo"]);
    for (const char* const action : {"install", "remove"}) {
        const auto result = run({"integrate", action});
        EXPECT_EQ(result.status, 1);
        for (const auto& [id, file] : places()) {
            EXPECT_THAT(result.errors,
                        HasSubstr(file.native() +
                                  (id == "thunar" ? " could not be understood" : " is not ours")));
            EXPECT_EQ(contents(file), id == "nemo" ? "" : "mine");
        }
    }
}

TEST_F(IntegrateTest, BringsItsOwnFilesUpToDate) {
    installPrograms("bin");
    ASSERT_EQ(run({"integrate", "install"}).status, 0);
    installPrograms("moved here");
    EXPECT_THAT(statuses(), testing::Each(testing::Pair(testing::_, "differs")));
    ASSERT_EQ(run({"integrate", "install"}).status, 0);
    EXPECT_THAT(statuses(), testing::Each(testing::Pair(testing::_, "installed")));
    ::chmod(places()["nautilus"].c_str(), 0644);
    EXPECT_EQ(statuses()["nautilus"], "differs") << "a script that can't be run is none";
    std::filesystem::remove(m_scratch / "moved here/vexmoor-desktop");
    EXPECT_EQ(statuses()["autostart"], "differs");
    EXPECT_EQ(run({"integrate", "remove"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(places()["autostart"]));
    EXPECT_EQ(run({"integrate", "install"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(places()["autostart"])) << "it would start nothing";
}

TEST_F(IntegrateTest, SharesThunarsFileWithTheUser) {
    const std::string system = "<actions>\n<action><name>Terminal</name></action>\n</actions>\n";
    m_scratch.write("home/system/Thunar/uca.xml", system);
    ASSERT_EQ(run({"integrate", "install"}).status, 0);
    EXPECT_THAT(contents(places()["thunar"]), HasSubstr("Terminal"))
        << "a file of the user's own hides the system's";
    ASSERT_EQ(run({"integrate", "remove"}).status, 0);
    EXPECT_EQ(contents(places()["thunar"]), system);

    const Path real = m_scratch.write("dotfiles/uca.xml", "<actions> </actions>");
    std::filesystem::remove(places()["thunar"]);
    std::filesystem::create_symlink(real, places()["thunar"]);
    ::chmod(real.c_str(), 0640);
    ASSERT_EQ(run({"integrate", "install"}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(places()["thunar"]));
    EXPECT_THAT(contents(real), HasSubstr("vexmoor-feed"));
    EXPECT_EQ(std::filesystem::status(real).permissions(), std::filesystem::perms(0640));
    EXPECT_THAT(namesIn(real.parent_path()), ElementsAre("uca.xml"));
    ASSERT_EQ(run({"integrate", "remove"}).status, 0);
    EXPECT_EQ(contents(real), "<actions> </actions>");
}

TEST_F(IntegrateTest, ScriptsFeedAnyNameWhereverTheProgramLies) {
    installPrograms("it's \"50%\" $HOME `x` \\n");
    ASSERT_EQ(run({"integrate", "install"}).status, 0);
    const std::vector<std::string> names = {
        "two\nlines", "-rf",    "$(touch caught)", "a  b",   "it's \"q\"", "*",
        "broken\xFF", "100%41", "back\\slash",     "[list]", "?"};
    for (const auto& [variable, id] : {std::pair("NAUTILUS_SCRIPT_SELECTED_URIS", "nautilus"),
                                       std::pair("CAJA_SCRIPT_SELECTED_URIS", "caja")}) {
        std::string uris;
        for (const auto& name : names)
            uris += fileUri(make(name)) + "\n";
        make("bystander");
        const auto fed = program({places()[id]}).with(variable, uris).run();
        EXPECT_EQ(fed.status, 0) << fed.errors;
        EXPECT_THAT(namesIn(m_files), ElementsAre("bystander"));
        EXPECT_THAT(binned(), UnorderedElementsAreArray(names));
        ASSERT_EQ(run({"put-back"}).status, 0);
        const auto byName = program({places()[id], "--", "-rf"}).run();
        EXPECT_EQ(byName.status, 1) << "there is no file called --";
        EXPECT_THAT(binned(), ElementsAre("-rf"));
        ASSERT_EQ(run({"put-back"}).status, 0);
    }
}

} // namespace
} // namespace vexmoor::test
