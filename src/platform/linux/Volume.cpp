#include "platform/Volume.h"

#include "base/FileDescriptor.h"
#include "platform/FileManager.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/ioctl.h>
#include <sys/statfs.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace vexmoor {

namespace {

// Magic numbers that linux/magic.h lacks.
constexpr unsigned long kZfs = 0x2FC12FC1;
constexpr unsigned long kJfs = 0x3153464A;
constexpr unsigned long kBcachefs = 0xCA451A4E;
constexpr unsigned long kNtfs = 0x5346544E;
constexpr unsigned long kNtfs3 = 0x7366746E;
constexpr unsigned long kConfigfs = 0x62656570;
constexpr unsigned long kMqueue = 0x19800202;
constexpr unsigned long kRpcPipefs = 0x67596969;
constexpr unsigned long kFusectl = 0x65735543;

constexpr unsigned long kPseudo[] = {
    PROC_SUPER_MAGIC,    SYSFS_MAGIC,        DEVPTS_SUPER_MAGIC,
    DEBUGFS_MAGIC,       TRACEFS_MAGIC,      SECURITYFS_MAGIC,
    SELINUX_MAGIC,       CGROUP_SUPER_MAGIC, EFIVARFS_MAGIC,
    CGROUP2_SUPER_MAGIC, BPF_FS_MAGIC,       PSTOREFS_MAGIC,
    BINFMTFS_MAGIC,      NSFS_MAGIC,         PIPEFS_MAGIC,
    SOCKFS_MAGIC,        kConfigfs,          kMqueue,
    kRpcPipefs,          kFusectl,
};
constexpr unsigned long kWithoutRights[] = {MSDOS_SUPER_MAGIC, EXFAT_SUPER_MAGIC, kNtfs, kNtfs3,
                                            FUSE_SUPER_MAGIC};
constexpr unsigned long kWithStableInodes[] = {
    EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC,      BTRFS_SUPER_MAGIC, F2FS_SUPER_MAGIC, kZfs, kJfs,
    TMPFS_MAGIC,      REISERFS_SUPER_MAGIC, kBcachefs,
};

constexpr std::size_t kLongestDeviceEntry = 64 * 1024;

/// The argument of FS_IOC_GETFSUUID, which older headers lack.
struct FileSystemUuid {
    unsigned char length;
    unsigned char bytes[16];
};
constexpr unsigned long kGetUuid = _IOR(0x15, 0, FileSystemUuid);

std::string uuidOfKernel(int folder) {
    const FileDescriptor readable(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    FileSystemUuid uuid{};
    if (!readable || ::ioctl(readable.get(), kGetUuid, &uuid) != 0 || uuid.length == 0 ||
        uuid.length > sizeof uuid.bytes)
        return {};
    std::string name = "uuid:";
    for (int i = 0; i < uuid.length; ++i) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", uuid.bytes[i]);
        name += digits;
    }
    return name;
}

/// Returns the UUID that udev recorded for the volume's device.
std::string uuidOfDevice(int folder) {
    const auto status = fileStatus(folder, "");
    if (!status)
        return {};
    const auto device = static_cast<dev_t>(status->identity.device);
    const std::string file =
        "/run/udev/data/b" + std::to_string(major(device)) + ":" + std::to_string(minor(device));
    const auto text = readRegularFile(AT_FDCWD, file.c_str(), kLongestDeviceEntry);
    if (!text)
        return {};
    constexpr std::string_view kKey = "\nE:ID_FS_UUID=";
    const auto start = text->find(kKey);
    if (start == std::string::npos)
        return {};
    const auto value = start + kKey.size();
    return "id:" + text->substr(value, text->find('\n', value) - value);
}

} // namespace

VolumeKind VolumeKind::ofType(unsigned long type) {
    const auto isIn = [type](const auto& types) {
        return std::find(std::begin(types), std::end(types), type) != std::end(types);
    };
    return {isIn(kPseudo), !isIn(kWithoutRights), isIn(kWithStableInodes)};
}

VolumeKind volumeKind(int folder) {
    struct statfs raw {};
    return ::fstatfs(folder, &raw) == 0
               ? VolumeKind::ofType(static_cast<unsigned long>(raw.f_type) & 0xFFFFFFFFUL)
               : VolumeKind();
}

std::string volumeName(int folder) {
    if (auto name = uuidOfKernel(folder); !name.empty())
        return name;
    if (auto name = uuidOfDevice(folder); !name.empty())
        return name;
    struct statfs raw {};
    if (::fstatfs(folder, &raw) != 0)
        return {};
    int id[2] = {};
    static_assert(sizeof id == sizeof raw.f_fsid);
    std::memcpy(id, &raw.f_fsid, sizeof id);
    char name[96];
    std::snprintf(name, sizeof name, "fs:%lx:%x%08x:%llu", static_cast<unsigned long>(raw.f_type),
                  static_cast<unsigned>(id[0]), static_cast<unsigned>(id[1]),
                  static_cast<unsigned long long>(raw.f_blocks));
    return name;
}

} // namespace vexmoor
