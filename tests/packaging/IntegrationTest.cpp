#include "support/Command.h"
#include "support/TemporaryDirectory.h"

#include <QColor>
#include <QImage>

#include <gtest/gtest.h>

#include <set>

namespace vexmoor {
namespace {

using test::Command;

const std::string kId = "org.vexmoor.Vexmoor";

/// The contents of a package, installed below a test folder.
class IntegrationTest : public testing::Test {
  protected:
    void SetUp() override {
        for (const char* component : {"integration", "translations"}) {
            const auto result = Command({VEXMOOR_CMAKE, "--install", VEXMOOR_BUILD_DIRECTORY,
                                         "--component", component, "--prefix", "/opt/pot"})
                                    .with("DESTDIR", m_folder.path())
                                    .run();
            ASSERT_EQ(result.status, 0) << result.output << result.errors;
        }
    }

    [[nodiscard]] Path prefix() const { return m_folder / "opt/pot"; }
    [[nodiscard]] Path share(const Path& file) const { return prefix() / "share" / file; }

    /// Runs a validator, which must report nothing. Skips the test if it is not installed.
    static void validate(const std::vector<std::string>& words) {
        if (!Command::exists(words.front()))
            GTEST_SKIP() << words.front() << " is not installed";
        const auto result = Command(words).run();
        EXPECT_EQ(result.status, 0) << result.output << result.errors;
    }

    test::TemporaryDirectory m_folder;
};

/// Returns the values of a key in file order.
std::vector<std::string> valuesOf(const std::string& key, const Path& file) {
    std::vector<std::string> values;
    std::istringstream lines(test::contents(file));
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(key + "="))
            values.push_back(line.substr(key.size() + 1));
    return values;
}

TEST_F(IntegrationTest, InstallsEverythingUnderOneName) {
    std::set<std::string> installed;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(prefix()))
        if (entry.is_regular_file())
            installed.insert(std::filesystem::relative(entry.path(), prefix()));
    std::set<std::string> expected{"share/applications/" + kId + ".desktop",
                                   "share/dbus-1/services/" + kId + ".service",
                                   "share/metainfo/org.vexmoor.vexmoor.metainfo.xml",
                                   "share/man/man1/vexmoor-desktop.1",
                                   "share/nemo/actions/vexmoor-feed.nemo_action",
                                   "share/kio/servicemenus/vexmoor-feed.desktop",
                                   "share/file-manager/actions/vexmoor-feed.desktop",
                                   "etc/xdg/autostart/" + kId + ".desktop",
                                   "share/icons/hicolor/scalable/apps/" + kId + ".svg",
                                   "share/locale/de/LC_MESSAGES/vexmoor.mo",
                                   "share/locale/en/LC_MESSAGES/vexmoor.mo"};
    for (const char* side : {"16", "22", "24", "32", "48", "64", "96", "128", "256", "512"})
        expected.insert(std::string("share/icons/hicolor/") + side + "x" + side + "/apps/" + kId +
                        ".png");
    EXPECT_EQ(installed, expected);
}

TEST_F(IntegrationTest, DesktopEntryIsValid) {
    const Path entry = share("applications/" + kId + ".desktop");
    validate({"desktop-file-validate", "--no-hints", entry});
    EXPECT_EQ(valuesOf("GenericName[de]", entry), std::vector<std::string>{"Kessel für Dateien"});
    EXPECT_EQ(valuesOf("DBusActivatable", entry), std::vector<std::string>{"true"});
    EXPECT_EQ(valuesOf("Icon", entry), std::vector{kId});
    EXPECT_EQ(valuesOf("Exec", entry).front(), "vexmoor-desktop %U");
    EXPECT_EQ(valuesOf("MimeType", entry), std::vector<std::string>{})
        << "a program that deletes files must not open them";
}

TEST_F(IntegrationTest, CallsTheInstalledPrograms) {
    const std::string program = "/opt/pot/bin/vexmoor";
    const std::string background = program + "-desktop --background";
    const auto service = share("dbus-1/services/" + kId + ".service");
    EXPECT_EQ(valuesOf("Name", service), std::vector{kId});
    EXPECT_EQ(valuesOf("Exec", service), std::vector{background});
    const auto autostart = prefix() / "etc/xdg/autostart" / (kId + ".desktop");
    validate({"desktop-file-validate", autostart});
    EXPECT_EQ(valuesOf("Exec", autostart), std::vector{background});
    EXPECT_EQ(valuesOf("TryExec", autostart), std::vector{program + "-desktop"});
    for (const char* menu :
         {"nemo/actions/vexmoor-feed.nemo_action", "kio/servicemenus/vexmoor-feed.desktop",
          "file-manager/actions/vexmoor-feed.desktop"}) {
        const auto commands = valuesOf("Exec", share(menu));
        ASSERT_EQ(commands.size(), 1U) << menu;
        EXPECT_TRUE(commands.front().starts_with(program + " feed --from-menu -- %")) << menu;
        EXPECT_TRUE(test::contents(share(menu)).starts_with("["))
            << menu << " must not be a user's file";
    }
}

TEST_F(IntegrationTest, MetainfoIsValid) {
    const Path page = share("metainfo/org.vexmoor.vexmoor.metainfo.xml");
    EXPECT_NE(test::contents(page).find(
                  "<summary xml:lang=\"de\">Dateien an einen Kessel verfüttern</summary>"),
              std::string::npos);
    validate({"appstreamcli", "validate", "--no-net", "--pedantic", page});
}

TEST_F(IntegrationTest, IconsHaveSharpPixelsInEverySize) {
    for (const int side : {16, 22, 24, 32, 48, 64, 96, 128, 256, 512}) {
        SCOPED_TRACE(side);
        const std::string name = std::to_string(side);
        const Path file = share("icons/hicolor/" + name + "x" + name + "/apps/" + kId + ".png");
        const QImage icon(QString::fromStdString(file));
        ASSERT_EQ(icon.size(), QSize(side, side));
        std::set<QRgb> colours;
        int painted = 0;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                colours.insert(icon.pixel(x, y));
                painted += qAlpha(icon.pixel(x, y)) == 255 ? 1 : 0;
            }
        EXPECT_LE(colours.size(), 11U) << "colours outside the skin: the icon was smoothed";
        EXPECT_GT(painted, side * side / 2) << "the pot is too small";
        EXPECT_EQ(icon.pixelColor(0, 0).alpha(), 0);
    }
}

TEST_F(IntegrationTest, ScalableIconMatchesTheOthers) {
    if (!Command::exists("rsvg-convert"))
        GTEST_SKIP() << "rsvg-convert is not installed";
    const auto drawn = Command({"rsvg-convert", "-w", "256", "-h", "256",
                                share("icons/hicolor/scalable/apps/" + kId + ".svg")})
                           .run();
    ASSERT_EQ(drawn.status, 0) << drawn.errors;
    const auto fromVectors = QImage::fromData(QByteArray::fromStdString(drawn.output))
                                 .convertToFormat(QImage::Format_ARGB32);
    const auto icon =
        QImage(QString::fromStdString(share("icons/hicolor/256x256/apps/" + kId + ".png")))
            .convertToFormat(QImage::Format_ARGB32);
    EXPECT_EQ(fromVectors, icon);
}

} // namespace
} // namespace vexmoor
