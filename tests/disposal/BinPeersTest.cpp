#include "BinFixture.h"

#include "disposal/TrashInfo.h"
#include "support/Command.h"

namespace vexmoor::test {

namespace {

/// Other Bin implementations must understand our Bin and vice versa.
class BinPeersTest : public BinTest {
  protected:
    /// Runs a program with the scratch home folder.
    [[nodiscard]] Command::Result run(std::vector<std::string> words,
                                      const std::string& input = {}) const {
        return Command(std::move(words))
            .in(path())
            .with("HOME", path())
            .with("XDG_DATA_HOME", path() / ".local/share")
            .with("LC_ALL", "C.UTF-8")
            .with("TRASH_VOLUMES", path().native())
            .input(input)
            .run();
    }
};

TEST_F(BinPeersTest, TrashCliListsAndRestoresWhatWeBin) {
    if (!Command::exists("trash-list"))
        GTEST_SKIP() << "trash-cli is not installed";
    for (const std::string name : {"plain.txt", "two words %41.txt", "\xC3\xA9t\xC3\xA9"}) {
        SCOPED_TRACE(name);
        write(Path("documents") / name, "bytes of " + name);
        (void)bin(path() / "documents" / name);
        const auto listed = run({"trash-list"});
        EXPECT_NE(listed.output.find((path() / "documents" / name).native()), std::string::npos)
            << listed.output << listed.errors;
        const auto restored = run({"trash-restore", path() / "documents" / name}, "0\n");
        EXPECT_EQ(read(path() / "documents" / name), "bytes of " + name)
            << restored.output << restored.errors;
    }
}

TEST_F(BinPeersTest, ForeignItemsCoexistAndCanBeEmptied) {
    if (!Command::exists("trash-put"))
        GTEST_SKIP() << "trash-cli is not installed";
    write("a.txt", "theirs");
    EXPECT_EQ(run({"trash-put", "a.txt"}).status, 0);
    write("a.txt", "ours");
    const Path ours = bin(path() / "a.txt");
    EXPECT_EQ(read(binPath() / "files/a.txt"), "theirs");
    EXPECT_EQ(read(ours), "ours");
    EXPECT_TRUE(erase(binPath() / "files/a.txt", path() / "a.txt").ok());
    EXPECT_EQ(read(ours), "ours");
    const auto listed = run({"trash-list"});
    EXPECT_EQ(std::ranges::count(listed.output, '\n'), 1) << listed.output;
    EXPECT_EQ(run({"trash-empty"}).status, 0);
    EXPECT_FALSE(fileStatus(ours).ok());
    EXPECT_EQ(describe(putBack(ours, path() / "a.txt").error()),
              "a.2.txt is no longer in the Bin.");
}

TEST_F(BinPeersTest, GioListsAndRestoresWhatWeBin) {
    if (!Command::exists("gio") || !Command::exists("dbus-run-session"))
        GTEST_SKIP() << "gio or a session bus is not installed";
    write("documents/report 1.txt", "bytes");
    const Path original = path() / "documents/report 1.txt";
    const Path place = bin(original);
    const auto listed = run({"dbus-run-session", "--", "gio", "trash", "--list"});
    if (listed.errors.find("not supported") != std::string::npos)
        GTEST_SKIP() << "gvfs is not installed: " << listed.errors;
    const auto line = listed.output.find(original.native());
    ASSERT_NE(line, std::string::npos) << listed.output << listed.errors;
    const auto uri = listed.output.substr(0, listed.output.find('\t'));
    const auto restored = run({"dbus-run-session", "--", "gio", "trash", "--restore", uri});
    EXPECT_EQ(read(original), "bytes") << uri << restored.errors;
    EXPECT_FALSE(fileStatus(place).ok());

    EXPECT_EQ(run({"gio", "trash", original}).status, 0);
    write("documents/report 1.txt", "ours");
    EXPECT_EQ(read(bin(original)), "ours");
    const auto theirs = binPath() / "files" / original.filename();
    EXPECT_EQ(TrashInfo::fromText(read(infoOf(theirs)))->path, original);
    EXPECT_TRUE(putBack(theirs, original).ok());
    EXPECT_EQ(read(original), "bytes");
}

} // namespace

} // namespace vexmoor::test
