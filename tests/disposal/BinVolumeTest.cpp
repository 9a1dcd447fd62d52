#include "BinFixture.h"

#include "disposal/DirectorySizes.h"
#include "disposal/TrashInfo.h"
#include "platform/Volume.h"

#include <linux/magic.h>

namespace vexmoor::test {

namespace {

/// Bins with difficult conditions: other users, full disks and unusual file systems.
class BinVolumeTest : public BinTest {
  protected:
    [[nodiscard]] static std::string userBin() { return ".Trash-" + std::to_string(geteuid()); }
    void mountWith(const char* options) const {
        ASSERT_EQ(mount("tmpfs", (path() / "volume").c_str(), "tmpfs", 0, options), 0);
    }
    /// Uses up all free space of the volume.
    void fill() const {
        const FileDescriptor filler(
            ::open((path() / "volume/filler").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
        const std::string block(4096, 'x');
        while (::write(filler.get(), block.data(), block.size()) > 0) {
        }
        EXPECT_EQ(errno, ENOSPC);
    }
    void useAllInodes() const {
        for (int i = 0; i < 100; ++i)
            FileDescriptor(::open((path() / "volume" / ("inode " + std::to_string(i))).c_str(),
                                  O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    }
};

TEST_F(BinVolumeTest, ReportsWhyAVolumeHasNoBinAndLeavesNoFolder) {
    struct Case {
        const char* options;
        std::function<void(const Path& bin)> prepare;
        std::string why;
    };
    const Case cases[] = {
        {"nr_inodes=4", [](const Path&) {}, "No space left on device"},
        {"",
         [](const Path& bin) {
             std::filesystem::create_directory(bin);
             ASSERT_EQ(chmod(bin.c_str(), 0777), 0);
         },
         "other users can write to the folder for it"},
        {"",
         [](const Path& bin) {
             std::filesystem::create_directory(bin);
             ASSERT_EQ(chown(bin.c_str(), kNobody, kNobody), 0);
         },
         "the folder for it belongs to another user"},
        {"",
         [](const Path& bin) {
             ASSERT_EQ(
                 mount(nullptr, bin.parent_path().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, ""), 0);
         },
         "Read-only file system"},
    };
    for (const auto& test : cases)
        inProcess([&] {
            SCOPED_TRACE(test.why);
            makeFolder("volume");
            useOwnMounts();
            if (IsSkipped())
                return;
            mountWith(test.options);
            write("volume/file", "x");
            test.prepare(path() / "volume" / userBin());
            const auto before = contents("volume");
            const auto disposed = dispose(path() / "volume/file");
            ASSERT_FALSE(disposed.ok());
            EXPECT_EQ(describe(disposed.error()),
                      "There is no Bin on its volume, and none could be created: " + test.why +
                          ".");
            EXPECT_EQ(contents("volume"), before);
        });
}

TEST_F(BinVolumeTest, LeavesNoEmptyBinAfterAFailure) {
    inProcess([&] {
        if (geteuid() != 0)
            GTEST_SKIP() << "needs root to create an unwritable folder";
        makeFolder("volume");
        useOwnMounts();
        if (IsSkipped())
            return;
        mountWith("mode=1777");
        write("volume/locked/file", "x");
        write("volume/free", "x");
        giveToNobody("volume/free");
        dropRights();
        const auto before = contents("volume");
        Disposer disposer(directories(), nullptr);
        const auto feed = [&](const char* item) {
            const auto held = disposer.hold(path() / item);
            return disposer.dispose(*held, DisposeMode::bin, 0, Date::now(), kUnobserved);
        };
        EXPECT_EQ(feed("volume/locked/file").error().code, std::errc::permission_denied);
        EXPECT_EQ(contents("volume"), before);
        const auto fed = feed("volume/free");
        ASSERT_TRUE(fed.ok()) << "the Bin is created again: " << describe(fed.error());
        EXPECT_EQ(read(fed->binned->place), "x");
    });
}

TEST_F(BinVolumeTest, PutsBackAndDeletesOnAFullVolume) {
    inProcess([&] {
        makeFolder("volume");
        useOwnMounts();
        if (IsSkipped())
            return;
        mountWith("size=256k,nr_inodes=40");
        for (const char* name : {"volume/a", "volume/b", "volume/folder/c", "volume/gone"})
            write(name, name);
        const Path a = bin(path() / "volume/a");
        const Path b = bin(path() / "volume/b");
        const Path folder = bin(path() / "volume/folder");
        fill();
        useAllInodes();
        EXPECT_TRUE(erase(folder, path() / "volume/folder").ok());
        useAllInodes(); // those that the folder freed
        EXPECT_TRUE(putBack(a, path() / "volume/a").ok());
        EXPECT_EQ(read(path() / "volume/a"), "volume/a");
        EXPECT_TRUE(erase(b, path() / "volume/b").ok());
        EXPECT_TRUE(dispose(path() / "volume/gone", DisposeMode::dissolve).ok());
        EXPECT_TRUE(std::filesystem::is_empty(a.parent_path()));
    });
}

TEST_F(BinVolumeTest, WorksUnderAnyUmask) {
    giveToNobody();
    inProcess([&] {
        dropRights();
        write("a", "x");
        makeFolder("gone");
        write("gone/b", "y");
        umask(0777);
        const Path a = bin(path() / "a");
        const Path b = bin(path() / "gone/b");
        ASSERT_EQ(rmdir((path() / "gone").c_str()), 0);
        for (const Path& folder : {binPath(), binPath() / "files", binPath() / "info"})
            EXPECT_EQ(fileStatus(folder)->mode & 07777, 0700U) << folder;
        EXPECT_EQ(fileStatus(infoOf(a))->mode & 07777, 0600U);
        EXPECT_TRUE(putBack(a, path() / "a").ok());
        const auto back = putBack(b, path() / "gone/b");
        EXPECT_TRUE(back.ok()) << describe(back.error());
        EXPECT_EQ(read(path() / "gone/b"), "y");
    });
}

TEST_F(BinVolumeTest, ReplacesANonFileNamedDirectorySizesWithoutBlocking) {
    const Path sizes = binPath() / "directorysizes";
    const std::function<void()> odd[] = {
        [&] { ASSERT_EQ(mkfifo(sizes.c_str(), 0600), 0); },
        [&] { ASSERT_EQ(symlink("/dev/zero", sizes.c_str()), 0); },
        [&] {
            std::ofstream(sizes).flush();
            std::filesystem::resize_file(sizes, std::uintmax_t{1} << 40);
        },
    };
    makeFolder(".local/share/Trash");
    for (const auto& make : odd) {
        std::filesystem::remove(sizes);
        make();
        write("folder/file", "x");
        const Path place = bin(path() / "folder");
        EXPECT_EQ(DirectorySizes::parse(read(sizes)).count(place.filename()), 1U);
        EXPECT_TRUE(erase(place, path() / "folder").ok());
    }
}

TEST_F(BinVolumeTest, KnowsTheFileSystemsProperties) {
    const auto kind = &VolumeKind::ofType;
    for (const unsigned long type : {PROC_SUPER_MAGIC, SYSFS_MAGIC, CGROUP2_SUPER_MAGIC})
        EXPECT_TRUE(kind(type).isPseudo) << type;
    for (const unsigned long type : {EXT4_SUPER_MAGIC, TMPFS_MAGIC, XFS_SUPER_MAGIC}) {
        EXPECT_FALSE(kind(type).isPseudo) << type;
        EXPECT_TRUE(kind(type).keepsRights && kind(type).hasStableInodes) << type;
    }
    for (const unsigned long type : {MSDOS_SUPER_MAGIC, EXFAT_SUPER_MAGIC, FUSE_SUPER_MAGIC})
        EXPECT_FALSE(kind(type).keepsRights || kind(type).hasStableInodes) << type;
    const auto home = openFolder(path());
    ASSERT_TRUE(home.ok());
    EXPECT_FALSE(volumeName(home->get()).empty());
    EXPECT_EQ(volumeName(home->get()), volumeName(directory()));
}

} // namespace

} // namespace vexmoor::test
