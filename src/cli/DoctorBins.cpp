#include "Doctor.h"

#include "base/ByteCount.h"
#include "base/Text.h"
#include "platform/FileManager.h"
#include "platform/MountTable.h"
#include "platform/Volume.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/statvfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <iterator>
#include <set>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

constexpr int kTimeoutMilliseconds = 2000;

/// The findings about one volume. Plain data, since it is sent through a pipe.
struct Look {
    bool isStored = false; ///< neither a pseudo file system nor a single file
    bool isHome = false;   ///< the volume contains the home Bin
    bool hasBin = false;
    bool canHaveBin = false;
    std::int64_t freeBytes = 0;
};

bool isOwnFolder(const Path& path) {
    const auto status = fileStatus(path);
    return status && status->isFolder() && status->owner == ::getuid();
}

/// Examines a volume; may hang with it.
Look lookAt(const Path& top, const UserDirectories& directories) {
    Look look;
    const auto folder = openFolder(top);
    const auto status = fileStatus(top);
    struct statvfs room {};
    if (!folder || !status || !status->isFolder() || ::statvfs(top.c_str(), &room) != 0)
        return look;
    look.isStored = !volumeKind(folder->get()).isPseudo && room.f_blocks > 0;
    look.freeBytes = static_cast<std::int64_t>(room.f_bavail * room.f_frsize);
    const auto home = fileStatus(directories.home);
    look.isHome = home && home->mountId == status->mountId;
    const auto user = std::to_string(directories.user);
    look.hasBin = look.isHome
                      ? isOwnFolder(directories.dataHome / "Trash")
                      : isOwnFolder(top / ".Trash" / user) || isOwnFolder(top / (".Trash-" + user));
    const bool isReadOnly = (room.f_flag & ST_RDONLY) != 0;
    look.canHaveBin = !isReadOnly && (look.isHome || ::access(top.c_str(), W_OK) == 0 ||
                                      ::access((top / ".Trash").c_str(), W_OK) == 0);
    return look;
}

/// Examines a volume in a child process, because a hanging system call cannot be cancelled. Returns
/// nullopt if the volume does not answer in time.
std::optional<Look> lookInTime(const Path& top, const UserDirectories& directories) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return std::nullopt;
    const FileDescriptor from(ends[0]);
    FileDescriptor to(ends[1]);
    const pid_t child = ::fork();
    if (child == 0) {
        for (const int inherited : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            ::close(inherited); // otherwise its readers would wait for this process
        const Look look = lookAt(top, directories);
        ::_exit(::write(to.get(), &look, sizeof look) == sizeof look ? 0 : 1);
    }
    to.reset();
    if (child < 0)
        return std::nullopt;
    Look look;
    pollfd answer{from.get(), POLLIN, 0};
    const bool answers = ::poll(&answer, 1, kTimeoutMilliseconds) == 1 &&
                         ::read(from.get(), &look, sizeof look) == sizeof look;
    if (!answers)
        ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, answers ? 0 : WNOHANG);
    return answers ? std::optional(look) : std::nullopt;
}

/// Returns the mount point without the volume's name, which may be private.
std::string placeText(const Path& top, bool isHome) {
    if (isHome)
        return "~";
    for (const char* const known :
         {"/", "/home", "/boot", "/boot/efi", "/dev/shm", "/run", "/tmp", "/usr", "/var"})
        if (top == known)
            return known;
    for (const char* const folder : {"/media", "/run/media", "/mnt", "/run/user", "/home", "/srv"})
        if (top.native().starts_with(std::string(folder) + "/"))
            return std::string(folder) + "/…";
    return "/…";
}

const char* binOf(const std::optional<Look>& look) {
    if (!look)
        return "noAnswer";
    if (look->hasBin)
        return "there";
    return look->canHaveBin ? "canBeMade" : "none";
}

std::string sentenceOf(const std::optional<Look>& look) {
    if (!look)
        return text("does not answer");
    const auto room = byteCountText(look->freeBytes);
    if (look->hasBin)
        return text("has a Bin, %1 free", {room});
    return look->canHaveBin ? text("can have a Bin, %1 free", {room})
                            : text("can have no Bin, %1 free", {room});
}

/// True for the kernel's own file systems, which are not examined.
bool isOfKernel(const std::string& type) {
    constexpr const char* kTypes[] = {"autofs",   "binfmt_misc", "bpf",      "cgroup",   "cgroup2",
                                      "configfs", "debugfs",     "devpts",   "devtmpfs", "efivarfs",
                                      "fusectl",  "hugetlbfs",   "mqueue",   "nsfs",     "proc",
                                      "pstore",   "securityfs",  "squashfs", "sysfs",    "tracefs"};
    return std::ranges::find(kTypes, type) != std::end(kTypes);
}

/// Returns the mounts to examine, starting with the home folder's volume.
std::vector<MountTable::Mount> mountsToLookAt(const UserDirectories& directories) {
    auto mounts = MountTable().all();
    std::erase_if(mounts, [](const auto& mount) { return isOfKernel(mount.type); });
    const auto home = fileStatus(directories.home);
    std::ranges::stable_partition(
        mounts, [&](const auto& mount) { return home && mount.id == home->mountId; });
    return mounts;
}

} // namespace

DoctorTopic doctorBins(const DoctorContext& context) {
    DoctorTopic topic{.key = "bins", .title = text("Bins"), .json = Json::array(), .lines = {}};
    std::set<std::string> shown; // by device, since a volume may be mounted several times
    for (const auto& mount : mountsToLookAt(context.directories)) {
        if (shown.contains(mount.device))
            continue;
        const auto look = lookInTime(mount.point, context.directories);
        if (look && (!look->isStored || (!look->hasBin && !look->canHaveBin)))
            continue;
        shown.insert(mount.device);
        const auto place = placeText(mount.point, look && look->isHome);
        Json volume = {{"place", place}, {"type", mount.type}, {"bin", binOf(look)}};
        if (look)
            volume["free"] = look->freeBytes;
        topic.json.push_back(std::move(volume));
        topic.lines.push_back({place + " (" + mount.type + ")", sentenceOf(look)});
    }
    return topic;
}

} // namespace vexmoor
