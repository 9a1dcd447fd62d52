#include "BinFixture.h"

namespace vexmoor::test {

namespace {

using BinGuardTest = BinTest;

TEST_F(BinGuardTest, RejectsProtectedPathsWithoutChangingThem) {
    write("kept", "x");
    (void)bin(path() / "kept");
    write("documents/file", "x");
    write(".local/share/vexmoor/journal/1.open", "x");
    ASSERT_EQ(symlink(".local/share/Trash", (path() / "other name of the Bin").c_str()), 0);
    struct Case {
        Path item;
        DisposalError why;
    };
    const std::vector<Case> cases = {
        {"/", DisposalError::isRoot},
        {path(), DisposalError::isHome},
        {path() / "documents/..", DisposalError::isHome},
        {path().parent_path(), DisposalError::isMountPoint}, // or it contains the Bin
        {path() / ".local", DisposalError::holdsBin},
        {path() / ".local/share", DisposalError::holdsBin},
        {binPath(), DisposalError::isBin},
        {binPath() / "files", DisposalError::isBin},
        {binPath() / "files/kept", DisposalError::isInsideBin},
        {path() / "other name of the Bin/info", DisposalError::isBin},
        {path() / "other name of the Bin/files/kept", DisposalError::isInsideBin},
        {path() / ".local/share/vexmoor", DisposalError::isOwnData},
        {path() / ".local/share/vexmoor/journal/1.open", DisposalError::isOwnData},
    };
    giveToNobody();
    for (const auto& name : contents())
        giveToNobody(name);
    const auto before = contents();
    // Runs as an unprivileged user, so that a bug could not delete anything important.
    inProcess([&] {
        dropRights();
        for (const auto& [item, why] : cases)
            for (const auto mode : kDisposeModes) {
                const auto result = dispose(item, mode);
                ASSERT_FALSE(result.ok()) << item;
                if (item == path().parent_path())
                    EXPECT_TRUE(result.error().code == DisposalError::isMountPoint ||
                                result.error().code == DisposalError::holdsBin)
                        << describe(result.error());
                else
                    EXPECT_EQ(result.error().code, make_error_code(why))
                        << item << ": " << describe(result.error());
            }
    });
    EXPECT_EQ(contents(), before);
}

TEST_F(BinGuardTest, RejectsTheResolvedFolderOfALinkedBin) {
    write("disk/home/.local/share/unrelated", "x");
    write("big/Trash/files/kept", "x");
    write("records/own/defaults.db", "x");
    const auto link = [this](const char* target, const char* name) {
        ASSERT_EQ(symlink((path() / target).c_str(), (path() / name).c_str()), 0);
    };
    link("disk/home", "home");
    link("big/Trash", "disk/home/.local/share/Trash");
    link("records/own", "disk/home/.local/share/vexmoor");
    const struct {
        const char* item;
        DisposalError why;
    } cases[] = {
        {"disk", DisposalError::holdsBin},
        {"disk/home", DisposalError::isHome},
        {"home", DisposalError::holdsBin},
        {"home/.local", DisposalError::holdsBin},
        {"home/.local/share/Trash", DisposalError::holdsBin},
        {"big", DisposalError::holdsBin},
        {"big/Trash", DisposalError::isBin},
        {"records", DisposalError::isOwnData},
        {"records/own/defaults.db", DisposalError::isOwnData},
    };
    Disposer disposer({path() / "home", path() / "home/.local/share", geteuid()}, nullptr);
    for (const auto& [item, why] : cases) {
        const auto held = disposer.hold(path() / item);
        ASSERT_FALSE(held.ok()) << item;
        EXPECT_EQ(held.error().code, make_error_code(why))
            << item << ": " << describe(held.error());
    }
    EXPECT_TRUE(disposer.hold(path() / "home/.local/share/unrelated").ok());
}

TEST_F(BinGuardTest, RejectsMountPointsAndVolumesWithoutBin) {
    inProcess([&] {
        makeFolder("folder/volume");
        useOwnMounts();
        if (IsSkipped())
            return;
        mountMemory("folder/volume");
        write("folder/volume/file", "x");
        for (const auto mode : kDisposeModes) {
            EXPECT_EQ(dispose(path() / "folder/volume", mode).error().code,
                      make_error_code(DisposalError::isMountPoint));
            EXPECT_EQ(dispose(path() / "folder", mode).error().code,
                      make_error_code(DisposalError::holdsMountPoint));
        }
        const std::string bin = ".Trash-" + std::to_string(geteuid());
        ASSERT_EQ(symlink("/tmp", (path() / "folder/volume" / bin).c_str()), 0);
        EXPECT_EQ(dispose(path() / "folder/volume/file").error().code,
                  make_error_code(DisposalError::noBinOnVolume));
        ASSERT_EQ(unlink((path() / "folder/volume" / bin).c_str()), 0);
        ASSERT_EQ(mount(nullptr, (path() / "folder/volume").c_str(), nullptr,
                        MS_REMOUNT | MS_RDONLY, nullptr),
                  0);
        EXPECT_EQ(dispose(path() / "folder/volume/file").error().code,
                  make_error_code(DisposalError::noBinOnVolume));
        EXPECT_EQ(read(path() / "folder/volume/file"), "x");
    });
}

TEST_F(BinGuardTest, RejectsABinThroughOtherMountsOfItsVolume) {
    inProcess([&] {
        for (const char* folder : {"volume", "whole", "bin", "deep", "part"})
            makeFolder(folder);
        useOwnMounts();
        if (IsSkipped())
            return;
        mountMemory("volume");
        write("volume/inner/data/file", "x");
        bind("volume/inner/data", "part");
        write("volume/file", "x");
        const Path place = bin(path() / "volume/file");
        const Path below = bin(path() / "part/file");
        const Path name = place.parent_path().parent_path().filename();
        bind("volume", "whole");
        bind("volume" / name, "bin");
        bind("volume" / name / "files", "deep");
        const struct {
            Path item;
            DisposalError why;
        } cases[] = {
            {path() / "whole" / name, DisposalError::isBin},
            {path() / "whole" / name / "files/file", DisposalError::isInsideBin},
            {path() / "bin/files", DisposalError::isInsideBin},
            {path() / "bin/files/file", DisposalError::isInsideBin},
            {path() / "deep/file", DisposalError::isInsideBin},
            {path() / "volume/inner/data" / name, DisposalError::isBin},
            {path() / "volume/inner/data" / name / "files/file", DisposalError::isInsideBin},
            {path() / "volume/inner/data", DisposalError::holdsBin},
            {path() / "volume/inner", DisposalError::holdsBin},
        };
        Disposer disposer(directories(), nullptr);
        for (const auto& [item, why] : cases) {
            const auto held = disposer.hold(item);
            ASSERT_FALSE(held.ok()) << item;
            EXPECT_EQ(held.error().code, make_error_code(why))
                << item << ": " << describe(held.error());
        }
    });
}

TEST_F(BinGuardTest, RejectsTheAccountsBinAndHomeFolder) {
    write("account/.local/share/Trash/files/kept", "x");
    write("account/file", "x");
    auto own = directories();
    own.home = path() / "home";
    own.dataHome = path() / "home/.local/share";
    own.accountHome = path() / "account";
    Disposer disposer(own, nullptr);
    const auto refusal = [&](const char* item) {
        return disposer.hold(path() / item).error().code;
    };
    EXPECT_EQ(refusal("account"), make_error_code(DisposalError::isHome));
    EXPECT_EQ(refusal("account/.local"), make_error_code(DisposalError::holdsBin));
    EXPECT_EQ(refusal("account/.local/share/Trash/files"), make_error_code(DisposalError::isBin));
    EXPECT_EQ(refusal("account/.local/share/Trash/files/kept"),
              make_error_code(DisposalError::isInsideBin));
    EXPECT_TRUE(disposer.hold(path() / "account/file").ok());
}

/// Only checks these paths; never disposes of them.
TEST_F(BinGuardTest, RejectsPseudoFileSystems) {
    Disposer disposer(directories(), nullptr);
    for (const char* item : {"/proc/self/status", "/sys/kernel", "/dev/null", "/dev/fd"}) {
        const auto held = disposer.hold(item);
        ASSERT_FALSE(held.ok()) << item;
        EXPECT_EQ(held.error().code, make_error_code(DisposalError::isPartOfSystem))
            << item << ": " << describe(held.error());
    }
}

TEST_F(BinGuardTest, FindsMountsInsideAFolderWithoutTheMountTable) {
    inProcess([&] {
        makeFolder("folder/deep/volume");
        makeFolder("plain/deep");
        write("file holder/file", "x");
        write("other", "x");
        useOwnMounts();
        if (IsSkipped())
            return;
        mountMemory("folder/deep/volume");
        bind("other", "file holder/file");
        ASSERT_EQ(mount("none", "/proc", "tmpfs", 0, ""), 0);
        Disposer disposer(directories(), nullptr);
        for (const char* item : {"folder", "file holder"})
            EXPECT_EQ(disposer.hold(path() / item).error().code,
                      make_error_code(DisposalError::holdsMountPoint))
                << item;
        EXPECT_TRUE(disposer.hold(path() / "plain").ok());
    });
}

} // namespace

} // namespace vexmoor::test
