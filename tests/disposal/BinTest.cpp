#include "BinFixture.h"

#include "disposal/DirectorySizes.h"
#include "disposal/NumberedName.h"
#include "disposal/TrashInfo.h"

#include <sys/socket.h>
#include <sys/un.h>

namespace vexmoor::test {

namespace {

const std::vector<std::string> kHostileNames = {
    "plain.txt",
    "two words",
    "new\nline",
    "-rf",
    "%41+b=c&d",
    "\xff\xfe broken",
    ".hidden",
    "archive.tar.gz",
    std::string(255, 'x'),
    std::string(246, 'y'),
    std::string(240, 'z') + ".verylong.txt",
    "\xC3\xA9" + std::string(120, 'e') +
        [] {
            std::string accents;
            for (int i = 0; i < 66; ++i)
                accents += "\xC3\xA9";
            return accents;
        }(),
};

TEST_F(BinTest, RoundTripsHostileNames) {
    for (const auto& name : kHostileNames) {
        SCOPED_TRACE(testing::PrintToString(name));
        const Path original = path() / "folder" / name;
        write(Path("folder") / name, "bytes of " + name);
        const Path place = bin(original);
        EXPECT_FALSE(fileStatus(original).ok());
        EXPECT_LE(place.filename().native().size(), 245U);
        const std::string text = read(infoOf(place));
        const auto info = TrashInfo::fromText(text);
        ASSERT_TRUE(info) << text;
        EXPECT_EQ(info->path, original);
        EXPECT_EQ(std::ranges::count(text, '\n'), 3) << text;
        EXPECT_TRUE(info->deletionDate);
        EXPECT_EQ(fileStatus(infoOf(place))->mode & 07777, 0600U);

        const auto landed = putBack(place, original);
        ASSERT_TRUE(landed.ok()) << describe(landed.error());
        EXPECT_EQ(*landed, original);
        EXPECT_EQ(read(original), "bytes of " + name);
        EXPECT_FALSE(fileStatus(infoOf(place)).ok());
    }
    for (const char* part : {"", "files", "info"})
        EXPECT_EQ(fileStatus(binPath() / part)->mode & 07777, 0700U) << part;
}

TEST_F(BinTest, MovesEveryKindOfItemWithoutFollowingLinks) {
    write("target/inside", "untouched");
    ASSERT_EQ(mkfifo((path() / "fifo").c_str(), 0600), 0);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{AF_UNIX, {}};
    std::snprintf(address.sun_path, sizeof address.sun_path, "/proc/self/fd/%d/socket",
                  directory());
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(socket);
    ASSERT_EQ(symlink("nowhere", (path() / "dangling").c_str()), 0);
    ASSERT_EQ(symlink("loop", (path() / "loop").c_str()), 0);
    ASSERT_EQ(symlink("target", (path() / "link").c_str()), 0);
    ASSERT_EQ(symlink("target", (path() / "link with slash").c_str()), 0);
    makeFolder("folder/below");
    write("read-only", "x");
    ASSERT_EQ(chmod((path() / "read-only").c_str(), 0400), 0);

    for (const char* name : {"fifo", "socket", "dangling", "loop", "link", "link with slash/",
                             "folder", "read-only"}) {
        const Path item = standardized(path().native() + "/" + name);
        const auto before = fileStatus(item);
        ASSERT_TRUE(before.ok()) << name;
        const Path place = bin(path().native() + "/" + name);
        const auto after = fileStatus(place);
        ASSERT_TRUE(after.ok()) << name;
        EXPECT_EQ(after->identity.inode, before->identity.inode) << name;
    }
    EXPECT_EQ(read(path() / "target/inside"), "untouched");
}

TEST_F(BinTest, TakesTheNextFreeNameWithoutReplacing) {
    makeFolder(".local/share/Trash/files");
    makeFolder(".local/share/Trash/info");
    write(".local/share/Trash/files/f.txt", "an orphan");
    write(".local/share/Trash/info/f.2.txt.trashinfo", "somebody's reservation");
    makeFolder(".local/share/Trash/files/f.3.txt");
    std::set<Path> places;
    for (int i = 0; i < 40; ++i) {
        write("f.txt", "item " + std::to_string(i));
        const Path place = bin(path() / "f.txt");
        EXPECT_TRUE(places.insert(place).second) << place;
        EXPECT_EQ(read(place), "item " + std::to_string(i));
        EXPECT_TRUE(fileStatus(infoOf(place)).ok());
    }
    EXPECT_EQ(places.begin()->parent_path(), binPath() / "files");
    EXPECT_TRUE(places.contains(binPath() / "files/f.4.txt"));
    EXPECT_EQ(read(binPath() / "files/f.txt"), "an orphan");
    EXPECT_EQ(read(binPath() / "info/f.2.txt.trashinfo"), "somebody's reservation");
    EXPECT_FALSE(fileStatus(binPath() / "info/f.txt.trashinfo").ok());
    EXPECT_FALSE(fileStatus(binPath() / "files/f.2.txt").ok());
}

TEST_F(BinTest, ReportsWhyAnItemCannotBeMovedAndKeepsIt) {
    makeFolder("locked");
    write("locked/file", "x");
    giveToNobody();
    giveToNobody("locked/file");
    inProcess([&] { // in a folder that only root can change
        if (geteuid() != 0)
            GTEST_SKIP() << "needs root to create an unwritable folder";
        dropRights();
        const auto result = dispose(path() / "locked/file");
        ASSERT_FALSE(result.ok());
        EXPECT_EQ(describe(result.error()), "Permission denied.");
        EXPECT_TRUE(exists("locked/file"));
        EXPECT_FALSE(exists(".local/share/Trash/info/file.trashinfo"));
    });
    const auto missing = dispose(path() / "never was");
    ASSERT_FALSE(missing.ok());
    EXPECT_EQ(describe(missing.error()), "No such file or directory.");
}

TEST_F(BinTest, UsesTheBinOfTheItemsVolume) {
    inProcess([&] {
        makeFolder("volume");
        useOwnMounts();
        if (IsSkipped())
            return;
        const std::string user = std::to_string(geteuid());
        mountMemory("volume");
        write("volume/deep/a b", "x");
        const Path place = bin(path() / "volume/deep/a b");
        EXPECT_EQ(place, path() / "volume" / (".Trash-" + user) / "files/a b");
        EXPECT_EQ(TrashInfo::fromText(read(infoOf(place)))->path, Path("deep/a b"));
        const auto landed = putBack(place, path() / "volume/deep/a b");
        EXPECT_TRUE(landed.ok());

        // A link is rejected as shared Bin; a real folder with the sticky bit is accepted.
        makeFolder("elsewhere");
        ASSERT_EQ(symlink("../elsewhere", (path() / "volume/.Trash").c_str()), 0);
        EXPECT_EQ(bin(path() / "volume/deep/a b").parent_path().parent_path(),
                  path() / "volume" / (".Trash-" + user));
        ASSERT_EQ(unlink((path() / "volume/.Trash").c_str()), 0);
        makeFolder("volume/.Trash");
        write("volume/second", "x");
        EXPECT_EQ(bin(path() / "volume/second").parent_path().parent_path(),
                  path() / "volume" / (".Trash-" + user));
        ASSERT_EQ(chmod((path() / "volume/.Trash").c_str(), 01777), 0);
        write("volume/third", "x");
        const Path shared = bin(path() / "volume/third");
        EXPECT_EQ(shared, path() / "volume/.Trash" / user / "files/third");
        EXPECT_EQ(dispose(shared).error().code, make_error_code(DisposalError::isInsideBin));
        EXPECT_EQ(dispose(path() / "volume/.Trash").error().code,
                  make_error_code(DisposalError::isBin));

        // A bind mount has the same device number, so the mount id decides.
        makeFolder("real");
        makeFolder("bound");
        write("real/file", "x");
        bind("real", "bound");
        EXPECT_EQ(bin(path() / "bound/file"), path() / "bound" / (".Trash-" + user) / "files/file");
    });
}

TEST_F(BinTest, KeepsTheItemOnAFullVolume) {
    inProcess([&] {
        makeFolder("volume");
        useOwnMounts();
        if (IsSkipped())
            return;
        ASSERT_EQ(mount("tmpfs", (path() / "volume").c_str(), "tmpfs", 0, "size=64k"), 0);
        write("volume/file", "x");
        const Path place = bin(path() / "volume/file"); // creates the Bin while there is space
        ASSERT_TRUE(putBack(place, path() / "volume/file").ok());
        write("volume/filler", std::string(1 << 20, 'x'));
        const auto result = dispose(path() / "volume/file");
        ASSERT_FALSE(result.ok());
        EXPECT_EQ(result.error().code, std::errc::no_space_on_device);
        EXPECT_EQ(read(path() / "volume/file"), "x");
        EXPECT_FALSE(fileStatus(infoOf(place)).ok()) << "a reserved info file remains";
    });
}

TEST_F(BinTest, PutsBackUnderANumberedNameAndCreatesMissingFolders) {
    struct Case {
        const char* name;
        const char* second;
        const char* third;
    };
    const std::string full(255, 'n');
    const std::string fullSecond = full.substr(2) + " 2";
    const std::string fullThird = full.substr(2) + " 3";
    for (const auto& [name, second, third] :
         {Case{"report.pdf", "report 2.pdf", "report 3.pdf"},
          Case{full.c_str(), fullSecond.c_str(), fullThird.c_str()},
          Case{"Notes", "Notes 2", "Notes 3"}, Case{".profile", ".profile 2", ".profile 3"},
          Case{"1. Introduction", "1. Introduction 2", "1. Introduction 3"},
          Case{"a.tar.gz", "a.tar 2.gz", "a.tar 3.gz"}}) {
        const Path original = path() / "gone/with it" / name;
        std::vector<Path> places;
        for (const char* bytes : {name, second, third}) {
            write(Path("gone/with it") / name, bytes);
            places.push_back(bin(original));
        }
        std::filesystem::remove_all(path() / "gone");
        for (const char* expected : {name, second, third}) {
            const auto landed = putBack(places.front(), original);
            places.erase(places.begin());
            ASSERT_TRUE(landed.ok()) << describe(landed.error());
            EXPECT_EQ(landed->filename(), expected);
            EXPECT_EQ(read(*landed), expected);
        }
    }
}

TEST_F(BinTest, DoesNotPutBackWithoutItemOrDestination) {
    write("file", "x");
    const Path place = bin(path() / "file");
    for (const Path& to : {Path("relative"), Path("/"), binPath() / "files/other",
                           binPath() / "new folder/other", path() / "a/../b"}) {
        std::ofstream(infoOf(place)) << TrashInfo{to, {}}.toText();
        const auto landed = putBack(place, to);
        ASSERT_FALSE(landed.ok()) << to;
        EXPECT_EQ(landed.error().code, make_error_code(DisposalError::invalidDestination)) << to;
    }
    EXPECT_EQ(putBack(path() / "not/a/bin", path() / "x").error().code,
              make_error_code(DisposalError::notInBin));
    std::filesystem::remove(place);
    for (const char* what : {"its info file alone", "nothing at all"}) {
        const auto gone = putBack(place, path() / "file");
        ASSERT_FALSE(gone.ok()) << what;
        EXPECT_EQ(describe(gone.error()), "file is no longer in the Bin.") << what;
        EXPECT_EQ(describe(erase(place, path() / "file").error()), "file is no longer in the Bin.");
        std::filesystem::remove(infoOf(place));
    }
}

TEST_F(BinTest, DeletesFromTheBinAndKeepsTheInfoFileOnFailure) {
    write("folder/a/b", "x");
    const Path place = bin(path() / "folder");
    EXPECT_TRUE(erase(place, path() / "folder").ok());
    EXPECT_FALSE(fileStatus(place).ok());
    EXPECT_FALSE(fileStatus(infoOf(place)).ok());
    if (geteuid() != 0)
        GTEST_SKIP() << "needs root to create files of another user";
    makeFolder("shared");
    write("shared/theirs", "x");
    write("shared/ours", "x");
    ASSERT_EQ(chmod((path() / "shared").c_str(), 01777), 0);
    giveToNobody();
    giveToNobody("shared/ours");
    for (const auto* part :
         {".local", ".local/share", ".local/share/Trash", ".local/share/Trash/files",
          ".local/share/Trash/info", ".local/share/Trash/vexmoor-leaving",
          ".local/share/Trash/vexmoor-leaving/files", ".local/share/Trash/vexmoor-leaving/info"})
        giveToNobody(part);
    const Path stubborn = bin(path() / "shared");
    ASSERT_EQ(lchown(infoOf(stubborn).c_str(), kNobody, kNobody), 0);
    inProcess([&] {
        dropRights();
        const auto result = erase(stubborn, path() / "shared");
        ASSERT_FALSE(result.ok());
        EXPECT_NE(describe(result.error()).find("theirs"), std::string::npos)
            << describe(result.error());
        EXPECT_FALSE(fileStatus(stubborn / "ours").ok());
        EXPECT_TRUE(fileStatus(stubborn / "theirs").ok());
        EXPECT_TRUE(fileStatus(infoOf(stubborn)).ok());
    });
}

TEST_F(BinTest, WritesTheSizesOfFolders) {
    makeFolder(".local/share/Trash/files");
    makeFolder(".local/share/Trash/info");
    write(".local/share/Trash/directorysizes",
          "nonsense\n4096 17 other%20tool\n99\n12 x y\n-1 5 b\n0 5 a%2Fb\n");
    write("two words/file", std::string(10000, 'x'));
    const Path place = bin(path() / "two words");
    const auto modified = fileStatus(infoOf(place))->modifiedSeconds;
    const std::map<std::string, DirectorySizes::Entry> both = {
        {"other tool", {4096, 17}},
        {"two words", {fileStatus(place / "file")->allocatedBytes, modified}},
    };
    EXPECT_EQ(DirectorySizes::parse(read(binPath() / "directorysizes")), both);
    ASSERT_TRUE(putBack(place, path() / "two words").ok());
    EXPECT_EQ(read(binPath() / "directorysizes"), "4096 17 other%20tool\n");
}

TEST(TrashInfo, ReadsForeignFilesAndRejectsInvalidOnes) {
    struct Case {
        std::string text;
        std::optional<Path> path;
    };
    for (const auto& [text, expected] : std::vector<Case>{
             {"[Trash Info]\nPath=/a%20b\nDeletionDate=2024-02-29T23:59:59\n", "/a b"},
             {"[Trash Info]\nDeletionDate=nonsense\nPath=/a+b=c%3D%2f\n", "/a+b=c=/"},
             {"[Trash Info]\nPath=/first\nPath=/second\n", "/first"},
             {"[Trash Info]\nPath=%FF%0A", "\xff\n"},
             {"[Trash Info]\nPath=/a%\n", std::nullopt},
             {"[Trash Info]\nPath=/a%00b\n", std::nullopt},
             {"[Trash Info]\nPath=\n", std::nullopt},
             {"Path=/a\n", std::nullopt},
             {"", std::nullopt}}) {
        const auto info = TrashInfo::fromText(text);
        EXPECT_EQ(info ? std::optional(info->path) : std::nullopt, expected) << text;
    }
}

TEST(NumberedName, TruncatesStoredNamesAtACharacterBoundary) {
    std::string accents = "x";
    for (int i = 0; i < 127; ++i)
        accents += "\xC3\xA9";
    for (const unsigned number : {1U, 2U, 123456U}) {
        const std::string stored = storedName(accents, number);
        EXPECT_LE(stored.size(), 245U);
        EXPECT_GE(stored.size(), 243U);
        EXPECT_TRUE(isValidUtf8(stored)) << stored;
    }
    EXPECT_EQ(storedName(std::string(250, 'n') + ".txt", 2).substr(239), ".2.txt");
    for (const unsigned number : {2U, 10000U}) {
        const std::string numbered = numberedName(accents, number);
        EXPECT_LE(numbered.size(), 255U);
        EXPECT_GE(numbered.size(), 254U);
        EXPECT_TRUE(isValidUtf8(numbered)) << numbered;
        EXPECT_TRUE(numbered.ends_with(" " + std::to_string(number))) << numbered;
    }
    EXPECT_EQ(numberedName(std::string(251, 'n') + ".txt", 12).substr(247), "n 12.txt");
    EXPECT_EQ(numberedName(std::string(249, 'n') + ".txt", 2).substr(248), "n 2.txt");
    const std::string endless = "a." + std::string(253, 'e');
    EXPECT_EQ(numberedName(endless, 2), endless.substr(0, 253) + " 2");
    EXPECT_EQ(storedName("a.txt", 3), "a.3.txt");
    EXPECT_EQ(storedName(".txt", 3), ".txt.3");
}

} // namespace

} // namespace vexmoor::test
