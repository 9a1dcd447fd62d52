#include "BinFixture.h"

namespace vexmoor::test {

namespace {

using BinGuardTest = BinTest;

TEST_F(BinGuardTest, RefusesWhatMustNeverGoAndTouchesNothing) {
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
        {path().parent_path(), DisposalError::isMountPoint}, // or it holds the Bin
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
    // As nobody, so that a wrong answer could not delete anything that matters.
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

TEST_F(BinGuardTest, RefusesWhatReallyHoldsTheBinWhereLinksLeadThere) {
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

TEST_F(BinGuardTest, RefusesMountPointsAndVolumesWithoutABin) {
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

} // namespace

} // namespace vexmoor::test
