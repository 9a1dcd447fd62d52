#include "CliTest.h"

#include "base/Path.h"

#include <sys/stat.h>

#include <set>

namespace vexmoor::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAreArray;

class IntegrateTest : public CliTest {
  protected:
    IntegrateTest() {
        for (const char* const manager : {"thunar", "nautilus", "caja", "pcmanfm", "spacefm"})
            installManager(manager, "exit 0");
        installManager("nemo", "echo nemo 6.4.1");
        installManager("dolphin", "echo dolphin 22.12.3");
    }

    [[nodiscard]] std::map<std::string, Path> places() const {
        return {{"nautilus", m_data / "nautilus/scripts/Feed to Vexmoor"},
                {"caja", m_config / "caja/scripts/Feed to Vexmoor"},
                {"nemo", m_data / "nemo/actions/vexmoor-feed.nemo_action"},
                {"thunar", m_config / "Thunar/uca.xml"},
                {"dolphin", m_data / "kio/servicemenus/vexmoor-feed.desktop"},
                {"pcmanfm", m_data / "file-manager/actions/vexmoor-feed.desktop"},
                {"autostart", m_config / "autostart/org.vexmoor.Vexmoor.desktop"}};
    }

    [[nodiscard]] std::map<std::string, Path> keys() const {
        return {{"nautilus", m_config / "nautilus/scripts-accels"},
                {"nemo", m_config / "nemo/actions-tree.json"},
                {"thunar", m_config / "Thunar/accels.scm"}};
    }

    [[nodiscard]] Command::Result run(std::vector<std::string> arguments) const {
        const Path managers = m_scratch / "managers";
        return vexmoor(std::move(arguments)).with("PATH", managers).run();
    }

    /// Removes the key's "waits", which depends on the file managers running on this machine.
    [[nodiscard]] Json json(std::vector<std::string> arguments) const {
        const auto result = run(std::move(arguments));
        auto document = Json::parse(result.output, nullptr, false);
        EXPECT_FALSE(document.is_discarded()) << result.output << result.errors;
        for (auto& row : document["integrations"])
            if (row.contains("key")) {
                EXPECT_EQ(row["key"].erase("waits"), 1U);
            }
        return document;
    }

    /// Returns the statuses of autostart and of the menu entries.
    [[nodiscard]] std::map<std::string, std::string> statuses() const {
        std::map<std::string, std::string> result;
        const Json document = json({"integrate", "--json"});
        for (const auto& row : document["integrations"])
            if (row["id"] != "spacefm")
                result[row["id"]] = row["status"];
        EXPECT_EQ(result.size(), places().size());
        return result;
    }

    /// Installs the program, and a placeholder for the desktop application, in a folder with this
    /// name.
    void installPrograms(const std::string& folder) {
        const Path programs = m_scratch / folder;
        std::filesystem::create_directories(programs);
        std::filesystem::copy_file(m_program, programs / "vexmoor");
        std::filesystem::copy_file("/bin/true", programs / "vexmoor-desktop");
        m_program = programs / "vexmoor";
    }

    void installManager(const std::string& name, const std::string& script) const {
        const auto file = m_scratch.write(Path("managers") / name, "#!/bin/sh\n" + script + "\n");
        ::chmod(file.c_str(), 0755);
    }

    /// Returns all files and folders of the home except the program's own data.
    [[nodiscard]] std::set<std::string> tree() const {
        std::set<std::string> all;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(m_home))
            if (const auto path = entry.path().lexically_relative(m_home).native();
                !path.starts_with("data/vexmoor"))
                all.insert(path);
        return all;
    }
};

TEST_F(IntegrateTest, InstallsReportsAndRemovesWhatTheInstalledManagersSupport) {
    installPrograms("bin");
    std::filesystem::create_directories(m_data);
    const auto before = tree();
    EXPECT_THAT(statuses(), testing::Each(testing::Pair(testing::_, "not installed")));
    EXPECT_EQ(run({"integrate", "install"}).status, 0);
    const auto document = json({"integrate", "status", "--json"});
    Json expected = {{"integrations", Json::array()}, {"failures", Json::array()}};
    for (const std::string id :
         {"thunar", "nautilus", "nemo", "caja", "pcmanfm", "dolphin", "spacefm", "autostart"}) {
        const bool hasMenu = places().contains(id);
        const bool hasKey = keys().contains(id);
        Json row = {{"id", id},
                    {"file", hasMenu ? places().at(id).native() : ""},
                    {"status", hasMenu ? "installed" : "unsupported"}};
        if (id != "autostart")
            row["key"] = {{"status", hasKey ? "installed" : "unsupported"},
                          {"file", hasKey ? keys().at(id).native() : ""}};
        expected["integrations"].push_back(row);
        if (hasMenu) {
            EXPECT_THAT(contents(places().at(id)), HasSubstr(m_scratch / "bin/vexmoor"));
        }
    }
    EXPECT_EQ(document, expected);
    EXPECT_THAT(
        contents(places()["autostart"]),
        HasSubstr("\nExec=" + (m_scratch / "bin/vexmoor-desktop").native() + " --background\n"));
    EXPECT_EQ(run({"integrate", "remove"}).status, 0);
    EXPECT_EQ(tree(), before);
    EXPECT_EQ(run({"integrate", "remove"}).status, 0) << "there is nothing left to remove";
}

TEST_F(IntegrateTest, AcceptsNamesOfManagers) {
    installPrograms("bin");
    const auto idsOf = [](const Json& document) {
        std::vector<std::string> ids;
        for (const auto& row : document["integrations"])
            ids.push_back(row["id"]);
        return ids;
    };
    EXPECT_THAT(idsOf(json({"integrate", "install", "--json", "krusader", "kio"})),
                ElementsAre("dolphin", "krusader"))
        << "krusader is not installed, kio is Dolphin's former id";
    EXPECT_EQ(statuses()["dolphin"], "installed");
    EXPECT_EQ(statuses()["nautilus"], "not installed");
    EXPECT_THAT(idsOf(json({"integrate", "remove", "--json", "autostart"})),
                ElementsAre("autostart"));
    EXPECT_EQ(statuses()["dolphin"], "installed");
    const auto unknown = run({"integrate", "install", "nautilus", "finder"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_THAT(unknown.errors, HasSubstr("finder is no id. ID can be: thunar, nautilus, nemo"));
    EXPECT_EQ(statuses()["nautilus"], "not installed");
}

TEST_F(IntegrateTest, InstallsNoKeyIfItsSettingIsOff) {
    installPrograms("bin");
    ASSERT_EQ(run({"settings", "captureFinderDelete", "off"}).status, 0);
    EXPECT_EQ(run({"integrate", "install"}).status, 0);
    for (const auto& [id, file] : keys())
        EXPECT_FALSE(std::filesystem::exists(file)) << id;
    EXPECT_THAT(run({"integrate", "status", "thunar"}).output,
                testing::EndsWith("\n  Ctrl+Backspace: not installed\n"));
    ASSERT_EQ(run({"settings", "captureFinderDelete", "on"}).status, 0);
    EXPECT_EQ(run({"integrate", "install"}).status, 0);
    for (const auto& [id, file] : keys())
        EXPECT_TRUE(std::filesystem::exists(file)) << id;
}

TEST_F(IntegrateTest, ExplainsWhatKeepsTheKeyFromWorking) {
    installPrograms("bin");
    m_scratch.write("home/config/nautilus/scripts-accels", "F4 Feed to Vexmoor\n");
    m_scratch.write("home/config/Thunar/accels.scm",
                    "(gtk_accel_path \"x\" \"<Control>BackSpace\")\n");
    installManager("nemo", "echo no display >&2; exit 1");
    const auto result = run({"integrate", "install"});
    EXPECT_EQ(result.status, 1);
    for (const char* const words :
         {"\n  Ctrl+Backspace: bound to something else in Thunar",
          "\n  Ctrl+Backspace: the entry has another key or none by your own choice",
          "\n  Ctrl+Backspace: unknown", "\n  Ctrl+Backspace: captured on X11; on Wayland",
          "\n  Ctrl+Backspace: captured on X11; nothing on Wayland"})
        EXPECT_THAT(result.output, HasSubstr(words));
    EXPECT_THAT(result.errors, HasSubstr("nemo does not report its version"));
    EXPECT_EQ(statuses()["nemo"], "installed") << "the menu entry does not depend on the key";
}

TEST_F(IntegrateTest, KeepsForeignFiles) {
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

TEST_F(IntegrateTest, UpdatesItsOwnFiles) {
    installPrograms("bin");
    ASSERT_EQ(run({"integrate", "install"}).status, 0);
    installPrograms("moved here");
    EXPECT_THAT(statuses(), testing::Each(testing::Pair(testing::_, "differs")));
    ASSERT_EQ(run({"integrate", "install"}).status, 0);
    EXPECT_THAT(statuses(), testing::Each(testing::Pair(testing::_, "installed")));
    ::chmod(places()["nautilus"].c_str(), 0644);
    EXPECT_EQ(statuses()["nautilus"], "differs")
        << "a script without the execute bit does not count";
    std::filesystem::remove(m_scratch / "moved here/vexmoor-desktop");
    EXPECT_EQ(statuses()["autostart"], "differs");
    EXPECT_EQ(run({"integrate", "remove"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(places()["autostart"]));
    EXPECT_EQ(run({"integrate", "install"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(places()["autostart"]))
        << "the desktop application is not installed";
}

TEST_F(IntegrateTest, SharesThunarsFileWithTheUser) {
    const std::string system = "<actions>\n<action><name>Terminal</name></action>\n</actions>\n";
    m_scratch.write("home/system/Thunar/uca.xml", system);
    ASSERT_EQ(run({"integrate", "install"}).status, 0);
    EXPECT_THAT(contents(places()["thunar"]), HasSubstr("Terminal"))
        << "the user's file hides the system's";
    ASSERT_EQ(run({"integrate", "remove"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(places()["thunar"]))
        << "the system's file takes effect again";

    const Path real = m_scratch.write("dotfiles/uca.xml", "<actions> </actions>");
    std::filesystem::create_directories(places()["thunar"].parent_path());
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

TEST_F(IntegrateTest, ScriptsFeedAnyNameFromAnyInstallationFolder) {
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
        EXPECT_EQ(byName.status, 1) << "there is no file named --";
        EXPECT_THAT(binned(), ElementsAre("-rf"));
        ASSERT_EQ(run({"put-back"}).status, 0);
    }
}

} // namespace
} // namespace vexmoor::test
