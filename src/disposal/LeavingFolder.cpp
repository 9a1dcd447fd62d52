#include "LeavingFolder.h"

#include <fcntl.h>
#include <unistd.h>

namespace vexmoor {

namespace {

constexpr mode_t kRights = 0700;

Result<FileDescriptor> openOrMake(int directory, const char* name) {
    auto folder = openFolderItself(directory, name);
    if (folder || folder.error().code != std::errc::no_such_file_or_directory)
        return folder;
    if (auto made = makeFolder(directory, name, kRights);
        !made && made.error().code != std::errc::file_exists)
        return std::move(made).error();
    return openFolderItself(directory, name);
}

} // namespace

Result<LeavingFolder> LeavingFolder::open(int bin) {
    const auto folder = openOrMake(bin, kName);
    if (!folder)
        return folder.error();
    LeavingFolder leaving;
    for (auto [part, descriptor] :
         {std::pair("files", &leaving.m_files), {"info", &leaving.m_info}}) {
        auto opened = openOrMake(folder->get(), part);
        if (!opened)
            return std::move(opened).error();
        *descriptor = *std::move(opened);
    }
    return leaving;
}

void LeavingFolder::prepare(int bin) {
    if (::faccessat(bin, kName, F_OK, AT_SYMLINK_NOFOLLOW) != 0)
        (void)open(bin); // an error recurs and is reported when the folder is needed
}

void LeavingFolder::remove(int bin) {
    if (const auto folder = openFolderItself(bin, kName))
        for (const char* part : {"files", "info"})
            ::unlinkat(folder->get(), part, AT_REMOVEDIR);
    ::unlinkat(bin, kName, AT_REMOVEDIR);
}

} // namespace vexmoor
