#include "TrashDirectory.h"

#include "base/Uuid.h"
#include "disposal/DisposalError.h"
#include "disposal/NumberedName.h"
#include "disposal/WholeRemoval.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

namespace vexmoor {

namespace {

constexpr unsigned kNamesInOrder = 16;
constexpr unsigned kNamesInAll = 64;
constexpr mode_t kFolderRights = 0700;
constexpr mode_t kInfoRights = 0600;
constexpr std::size_t kLongestInfo = 64 * 1024; ///< a path of PATH_MAX bytes, all encoded, and more

/// After the ordered names, which a hostile or huge Bin may hold all of, random ones.
unsigned nextNumber(unsigned attempt, unsigned first) {
    if (attempt < kNamesInOrder)
        return first + attempt;
    unsigned random = 0;
    const auto bytes = Uuid::generate().bytes;
    std::memcpy(&random, bytes.data(), sizeof random);
    return random | 0x10000U;
}

Result<FileDescriptor> openOrMake(int directory, const char* name, bool make, const Path& path) {
    if (make && ::mkdirat(directory, name, kFolderRights) != 0 && errno != EEXIST)
        return Error::fromErrno(errno, "make the folder", path);
    auto folder = openFolderItself(directory, name);
    if (!folder)
        return Error{folder.error().code, "open the folder", path};
    return folder;
}

/// The top folder of the volume whose Bin that is; none of a home Bin.
Path topOf(const Path& bin) {
    const Path parent = bin.parent_path();
    if (bin.filename().native().starts_with(".Trash-"))
        return parent;
    return parent.filename() == ".Trash" ? parent.parent_path() : Path();
}

bool isMissing(const Error& error) {
    return error.code == std::errc::no_such_file_or_directory;
}

/// A folder at the top of a volume that others can write to counts only where it is really ours.
bool isOwnFolder(int folder, uid_t user) {
    const auto status = fileStatus(folder, "");
    return status && status->isFolder() && status->owner == user &&
           (status->mode & (S_IWGRP | S_IWOTH)) == 0;
}

} // namespace

Result<TrashDirectory> TrashDirectory::openHome(const Path& bin) {
    if (auto made = makeFolders(bin, kFolderRights); !made)
        return std::move(made).error();
    auto folder = openFolder(bin);
    if (!folder)
        return Error{folder.error().code, "open the Bin", bin};
    return openAt(folder->get(), bin, {}, true);
}

Result<TrashDirectory> TrashDirectory::openOnVolume(const Path& top, uid_t user) {
    const auto topFolder = openFolder(top);
    if (!topFolder)
        return disposalError(DisposalError::noBinOnVolume, top);
    const std::string number = std::to_string(user);
    if (const auto shared = openFolderItself(topFolder->get(), ".Trash")) {
        const auto status = fileStatus(shared->get(), "");
        if (status && (status->mode & S_ISVTX) != 0) {
            const Path path = top / ".Trash" / number;
            const auto own = openOrMake(shared->get(), number.c_str(), true, path);
            if (own && isOwnFolder(own->get(), user))
                if (auto bin = openAt(own->get(), path, top, true))
                    return bin;
        }
    }
    const std::string name = ".Trash-" + number;
    const auto own = openOrMake(topFolder->get(), name.c_str(), true, top / name);
    if (!own || !isOwnFolder(own->get(), user))
        return disposalError(DisposalError::noBinOnVolume, top);
    auto bin = openAt(own->get(), top / name, top, true);
    return bin ? std::move(bin) : disposalError(DisposalError::noBinOnVolume, top);
}

Result<TrashDirectory> TrashDirectory::openOfPlace(const Path& place) {
    const Path files = place.parent_path();
    const Path bin = files.parent_path();
    if (files.filename() != "files" || lastComponent(place) == "..")
        return disposalError(DisposalError::notInBin, place);
    const auto folder = openFolder(bin);
    if (!folder && !isMissing(folder.error()))
        return Error{folder.error().code, "open the Bin", bin};
    if (!folder)
        return disposalError(isOnAbsentVolume(place) ? DisposalError::volumeNotThere
                                                     : DisposalError::goneFromBin,
                             place);
    auto opened = openAt(folder->get(), bin, topOf(bin), false);
    if (!opened && isMissing(opened.error())) {
        const auto item = fileStatus(place);
        return disposalError(!item && isMissing(item.error()) ? DisposalError::goneFromBin
                                                              : DisposalError::notInBin,
                             place);
    }
    return opened;
}

/// Without its volume a mount point is a plain folder, or is gone with it. A home Bin may be a link
/// to another volume, or lie with all other data on one.
bool TrashDirectory::isOnAbsentVolume(const Path& place) {
    const Path bin = place.parent_path().parent_path();
    const auto folder = fileStatus(bin / ".");
    if (folder || !isMissing(folder.error()))
        return false;
    if (const Path top = topOf(bin); !top.empty()) {
        const auto mounted = fileStatus(top);
        return !mounted || !mounted->isMountPoint;
    }
    return fileStatus(bin).ok() || !fileStatus(bin.parent_path() / ".");
}

Result<TrashDirectory> TrashDirectory::openAt(int directory, Path path, Path top, bool make) {
    TrashDirectory bin;
    auto folder = openFolder(directory, ".");
    auto files = openOrMake(directory, "files", make, path / "files");
    if (!folder || !files)
        return !folder ? std::move(folder).error() : std::move(files).error();
    auto info = openOrMake(directory, "info", make, path / "info");
    if (!info)
        return std::move(info).error();
    const auto status = fileStatus(files->get(), "");
    if (!status)
        return status.error();
    bin.m_path = std::move(path);
    bin.m_top = std::move(top);
    bin.m_folder = *std::move(folder);
    bin.m_files = *std::move(files);
    bin.m_info = *std::move(info);
    bin.m_mountId = status->mountId;
    return bin;
}

Result<Path> TrashDirectory::take(const HeldItem& item, std::int64_t bytes, const TrashInfo& info,
                                  const PlaceObserver& willTake) {
    const std::string text = info.toText();
    const unsigned first = item.name == m_lastClashName ? m_lastClashNumber : 1;
    for (unsigned attempt = 0; attempt < kNamesInAll; ++attempt) {
        const unsigned number = nextNumber(attempt, first);
        const std::string name = storedName(item.name, number);
        Path place = m_path / "files" / name;
        if (auto noted = willTake(place); !noted)
            return std::move(noted).error();
        if (auto written = writeInfo(name, text); !written) {
            if (written.error().code == std::errc::file_exists)
                continue;
            return std::move(written).error();
        }
        auto moved =
            moveWithoutReplacing(item.folder(), item.name.c_str(), m_files.get(), name.c_str());
        if (!moved) {
            ::unlinkat(m_info.get(), infoName(name).c_str(), 0);
            if (moved.error().code == std::errc::file_exists)
                continue;
            return std::move(moved).error();
        }
        if (attempt > 0 || number > 1) {
            m_lastClashName = item.name;
            m_lastClashNumber = attempt < kNamesInOrder ? number + 1 : first;
        }
        if (item.status.isFolder())
            if (const auto status = fileStatus(m_info.get(), infoName(name).c_str()))
                m_sizes.set(name, {bytes, status->modifiedSeconds});
        return place;
    }
    return disposalError(DisposalError::noFreeName);
}

Path TrashDirectory::expectedPlace(const std::string& name) {
    const unsigned first = name == m_expectedClashName ? m_expectedClashNumber : 1;
    std::string stored;
    for (unsigned attempt = 0; attempt < kNamesInOrder; ++attempt) {
        const unsigned number = first + attempt;
        stored = storedName(name, number);
        if (m_expected.contains(stored) || fileStatus(m_files.get(), stored.c_str()) ||
            fileStatus(m_info.get(), infoName(stored).c_str()))
            continue;
        if (number > 1) {
            m_expectedClashName = name;
            m_expectedClashNumber = number + 1;
        }
        break;
    }
    m_expected.insert(stored);
    return m_path / "files" / stored;
}

Result<void> TrashDirectory::writeInfo(const std::string& name, const std::string& text) {
    const std::string file = infoName(name);
    FileDescriptor info(::openat(m_info.get(), file.c_str(),
                                 O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW,
                                 kInfoRights));
    const auto failure = [&] { return Error::fromErrno(errno, "write", m_path / "info" / file); };
    if (!info)
        return failure();
    std::string_view rest = text;
    while (!rest.empty()) {
        const ssize_t written = ::write(info.get(), rest.data(), rest.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            break;
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
    if (rest.empty() && info.close())
        return {};
    const Error error = failure();
    ::unlinkat(m_info.get(), file.c_str(), 0);
    return error;
}

Result<FileStatus> TrashDirectory::find(const std::string& name, const TrashInfo& record) const {
    const auto gone = [&] {
        return disposalError(DisposalError::goneFromBin, m_path / "files" / name);
    };
    auto status = fileStatus(m_files.get(), name.c_str());
    if (!status)
        return isMissing(status.error()) ? gone() : std::move(status).error();
    const auto text = infoText(name);
    if (!text && !isMissing(text.error()))
        return text.error();
    const Path written = m_top.empty() ? record.path : record.path.lexically_relative(m_top);
    if (text && *text == TrashInfo{written, record.deletionDate}.toText())
        return status; // saves understanding it, nearly always
    const auto info = TrashInfo::fromText(text ? *text : std::string());
    if (!info)
        return disposalError(DisposalError::withoutInfo);
    const auto infoSeconds = [&] {
        const auto file = fileStatus(m_info.get(), infoName(name).c_str());
        return file ? file->modifiedSeconds : 0;
    };
    const bool isSame =
        names(*info, record.path) &&
        (!record.deletionDate || info->isOfMoment(*record.deletionDate, infoSeconds));
    return isSame ? std::move(status) : gone();
}

/// A relative path has lost the links that its item was named through.
bool TrashDirectory::names(const TrashInfo& info, const Path& original) const {
    const Path named = m_top / info.path;
    if (named == original || m_top.empty())
        return named == original;
    std::error_code code;
    const auto folder = std::filesystem::weakly_canonical(original.parent_path(), code);
    return !code && named == folder / original.filename();
}

Result<void> TrashDirectory::erase(const std::string& name, WorkMeter* meter) {
    if (auto removed = removeWhole(m_files.get(), name, meter); !removed)
        return removed;
    return removeInfo(name);
}

Result<void> TrashDirectory::removeInfo(const std::string& name) {
    m_sizes.remove(name);
    const std::string file = infoName(name);
    if (::unlinkat(m_info.get(), file.c_str(), 0) != 0 && errno != ENOENT)
        return Error::fromErrno(errno, "remove", m_path / "info" / file);
    return {};
}

Result<std::string> TrashDirectory::infoText(const std::string& name) const {
    const std::string fileName = infoName(name);
    const FileDescriptor file(
        ::openat(m_info.get(), fileName.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    const auto failure = [&] {
        return Error::fromErrno(errno, "read", m_path / "info" / fileName);
    };
    if (!file)
        return failure();
    std::string text;
    char buffer[4096];
    ssize_t count = sizeof buffer;
    while (count == sizeof buffer && text.size() < kLongestInfo) {
        count = ::read(file.get(), buffer, sizeof buffer);
        if (count < 0)
            return failure();
        text.append(buffer, static_cast<std::size_t>(count));
    }
    return text;
}

void TrashDirectory::flushSizes() {
    m_sizes.flush(m_folder.get());
}

bool TrashDirectory::isInPlace() const {
    for (const auto& [held, part] : {std::pair(m_files.get(), "files"), {m_info.get(), "info"}}) {
        const auto now = fileStatus(m_path / part);
        const auto then = fileStatus(held, "");
        if (!now || !then || now->identity != then->identity)
            return false;
    }
    return true;
}

} // namespace vexmoor
