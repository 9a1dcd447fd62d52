#include "DatabaseFiles.h"

#include "base/FileDescriptor.h"
#include "base/Text.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string>

namespace vexmoor {

namespace {

constexpr const char* kCompanions[] = {"-wal", "-shm", ""};

std::filesystem::path companion(std::filesystem::path file, const char* suffix) {
    return file += suffix;
}

constexpr off_t kReserveBytes = 1024 * 1024;
constexpr const char* kReserve = ".reserve";

} // namespace

Result<void> makePrivateFolder(const std::filesystem::path& folder) {
    std::error_code code;
    if (std::filesystem::create_directories(folder, code) && !code)
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, code);
    return code ? Result<void>(Error{code, marked("make the folder of the database"), folder})
                : Result<void>();
}

bool hasLog(const std::filesystem::path& file) {
    std::error_code code;
    const auto size = std::filesystem::file_size(companion(file, "-wal"), code);
    return code ? code != std::errc::no_such_file_or_directory : size > 0;
}

bool hasLostItsPages(const std::filesystem::path& file) {
    if (!hasLog(file))
        return false;
    std::error_code code;
    const auto size = std::filesystem::file_size(file, code);
    return code ? code == std::errc::no_such_file_or_directory : size == 0;
}

bool isNoFile(const std::filesystem::path& file) {
    struct stat status {};
    return ::stat(file.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

Result<std::filesystem::path> moveAside(const std::filesystem::path& file) {
    std::error_code code;
    std::filesystem::path aside;
    int number = 0;
    const auto taken = [&](const char* suffix) {
        return std::filesystem::exists(companion(aside, suffix), code);
    };
    do {
        aside = companion(file, (".corrupt-" + std::to_string(++number)).c_str());
    } while (std::ranges::any_of(kCompanions, taken));
    for (const char* suffix : kCompanions) {
        const auto from = companion(file, suffix);
        std::filesystem::rename(from, companion(aside, suffix), code);
        if (code && code != std::errc::no_such_file_or_directory)
            return Error{code, marked("set the corrupt database aside"), from};
    }
    return aside;
}

void keepReserve(const std::filesystem::path& file) {
    const auto reserve = companion(file, kReserve);
    struct stat status {};
    if (::stat(reserve.c_str(), &status) == 0 && status.st_size >= kReserveBytes)
        return;
    const FileDescriptor descriptor(
        ::open(reserve.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
    if (!descriptor || ::posix_fallocate(descriptor.get(), 0, kReserveBytes) != 0)
        ::unlink(reserve.c_str()); // without space there is no reserve
}

bool releaseReserve(const std::filesystem::path& file) {
    return ::unlink(companion(file, kReserve).c_str()) == 0;
}

} // namespace vexmoor
