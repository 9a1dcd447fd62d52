#include "TrashDirectory.h"

#include "base/Text.h"
#include "base/Uuid.h"
#include "disposal/DisposalError.h"
#include "disposal/NumberedName.h"
#include "platform/Volume.h"

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

bool isMissing(const Error& error) {
    return error.code == std::errc::no_such_file_or_directory;
}

/// Returns ordered numbers first, then random ones, since a hostile or huge Bin may use all ordered
/// names.
unsigned nextNumber(unsigned attempt, unsigned first) {
    if (attempt < kNamesInOrder)
        return first + attempt;
    unsigned random = 0;
    const auto bytes = Uuid::generate().bytes;
    std::memcpy(&random, bytes.data(), sizeof random);
    return random | 0x10000U;
}

Result<FileDescriptor> openOrMake(int directory, const char* name, bool make, const Path& path) {
    auto folder = openFolderItself(directory, name);
    if (!folder && make && isMissing(folder.error())) {
        if (auto made = makeFolder(directory, name, kFolderRights);
            !made && made.error().code != std::errc::file_exists)
            return Error{made.error().code, marked("make the folder"), path};
        folder = openFolderItself(directory, name);
    }
    if (!folder)
        return Error{folder.error().code, marked("open the folder"), path};
    return folder;
}

/// Returns the top folder of the Bin's volume; empty for a home Bin.
Path topOf(const Path& bin) {
    const Path parent = bin.parent_path();
    if (bin.filename().native().starts_with(".Trash-"))
        return parent;
    return parent.filename() == ".Trash" ? parent.parent_path() : Path();
}

/// Returns why the folder must not be used as the user's Bin; nullopt if it may be. Ignores
/// permissions on file systems that do not store any.
std::optional<Error> whyNotOwn(int folder, uid_t user) {
    const auto status = fileStatus(folder, "");
    if (!status)
        return status.error();
    if (status->owner != user)
        return disposalError(DisposalError::ownedByOther);
    const bool isOpenToOthers = (status->mode & (S_IWGRP | S_IWOTH)) != 0;
    if (isOpenToOthers && volumeKind(folder).keepsRights)
        return disposalError(DisposalError::openToOthers);
    return std::nullopt;
}

Error noBin(const Path& top, Error why) {
    return {make_error_code(DisposalError::noBinOnVolume), {}, top, 0, {std::move(why)}};
}

} // namespace

Result<TrashDirectory> TrashDirectory::openHome(const Path& bin) {
    if (auto made = makeFolders(bin, kFolderRights); !made)
        return std::move(made).error();
    auto folder = openFolder(bin);
    if (!folder)
        return Error{folder.error().code, marked("open the Bin"), bin};
    return openAt(folder->get(), bin, {}, true);
}

Result<TrashDirectory> TrashDirectory::openOnVolume(const Path& top, uid_t user) {
    const auto topFolder = openFolder(top);
    if (!topFolder)
        return noBin(top, topFolder.error());
    const std::string number = std::to_string(user);
    if (const auto shared = openFolderItself(topFolder->get(), ".Trash")) {
        const auto status = fileStatus(shared->get(), "");
        if (status && (status->mode & S_ISVTX) != 0)
            if (auto bin = openOwn(shared->get(), number, top, top / ".Trash" / number, user))
                return bin;
    }
    const std::string name = ".Trash-" + number;
    return openOwn(topFolder->get(), name, top, top / name, user);
}

/// Removes a folder that it has created if the folder is unusable.
Result<TrashDirectory> TrashDirectory::openOwn(int parent, const std::string& name, const Path& top,
                                               const Path& path, uid_t user) {
    const bool isNew = ::faccessat(parent, name.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) != 0;
    const auto own = openOrMake(parent, name.c_str(), true, path);
    if (!own)
        return noBin(top, own.error());
    auto why = whyNotOwn(own->get(), user);
    if (!why) {
        auto bin = openAt(own->get(), path, top, true);
        if (bin) {
            bin->m_isNew = isNew;
            return bin;
        }
        why = bin.error();
    }
    if (isNew) {
        for (const char* part : {"files", "info"})
            ::unlinkat(own->get(), part, AT_REMOVEDIR);
        ::unlinkat(parent, name.c_str(), AT_REMOVEDIR);
    }
    return noBin(top, *std::move(why));
}

Result<TrashDirectory> TrashDirectory::openOfPlace(const Path& place, const std::string& volume) {
    const Path files = place.parent_path();
    const Path bin = files.parent_path();
    if (files.filename() != "files" || lastComponent(place) == "..")
        return disposalError(DisposalError::notInBin, place);
    const auto gone = [&] {
        const auto top = openFolder(topOf(bin));
        const bool isOther = !volume.empty() && top && volumeName(top->get()) != volume;
        return disposalError(isOther || isOnAbsentVolume(place) ? DisposalError::volumeNotThere
                                                                : DisposalError::goneFromBin,
                             place);
    };
    const auto folder = openFolder(bin);
    if (!folder && (isMissing(folder.error()) || isOnAbsentVolume(place)))
        return gone();
    if (!folder)
        return Error{folder.error().code, marked("open the Bin"), bin};
    auto opened = openAt(folder->get(), bin, topOf(bin), false);
    if (!opened && isMissing(opened.error())) {
        const auto item = fileStatus(place);
        return !item && isMissing(item.error()) ? gone()
                                                : disposalError(DisposalError::notInBin, place);
    }
    return opened;
}

bool TrashDirectory::isOfVolume(const Path& place) {
    return !topOf(place.parent_path().parent_path()).empty();
}

/// The mount point of a missing volume is a plain folder or does not exist. A home Bin may be a
/// link to another volume, or be on one with all other data.
bool TrashDirectory::isOnAbsentVolume(const Path& place) {
    const Path bin = place.parent_path().parent_path();
    const auto folder = fileStatus(bin / ".");
    if (folder)
        return false;
    for (const auto code : {std::errc::not_connected, std::errc::io_error, std::errc::timed_out,
                            std::errc::host_unreachable})
        if (folder.error().code == code)
            return true; // the volume does not answer
    if (folder.error().code.value() == EHOSTDOWN)
        return true;
    if (!isMissing(folder.error()))
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
    if (make)
        LeavingFolder::prepare(directory);
    if (!top.empty())
        bin.m_volume = volumeName(files->get());
    bin.m_hasStableInodes = volumeKind(files->get()).hasStableInodes;
    bin.m_path = std::move(path);
    bin.m_top = std::move(top);
    bin.m_folder = *std::move(folder);
    bin.m_files = *std::move(files);
    bin.m_info = *std::move(info);
    bin.m_mountId = status->mountId;
    return bin;
}

Result<BinnedItem> TrashDirectory::take(const HeldItem& item, const TrashInfo& info,
                                        const PlaceObserver& willTake) {
    const std::string text = info.toText();
    const unsigned first = item.name == m_lastClashName ? m_lastClashNumber : 1;
    Error failure = disposalError(DisposalError::noFreeName);
    for (unsigned attempt = 0; attempt < kNamesInAll; ++attempt) {
        const unsigned number = nextNumber(attempt, first);
        const std::string name = storedName(item.name, number);
        Path place = m_path / "files" / name;
        if (auto noted = willTake(place); !noted) {
            failure = std::move(noted).error();
            break;
        }
        auto moved = writeInfo(name, text);
        if (moved) {
            moved =
                moveWithoutReplacing(item.folder(), item.name.c_str(), m_files.get(), name.c_str(),
                                     [this] { return openLeaving() ? leaving() : -1; });
            if (!moved)
                ::unlinkat(m_info.get(), infoName(name).c_str(), 0);
        }
        if (!moved && moved.error().code == std::errc::file_exists)
            continue;
        if (!moved) {
            failure = std::move(moved).error();
            break;
        }
        m_isNew = false;
        if (attempt > 0 || number > 1) {
            m_lastClashName = item.name;
            m_lastClashNumber = attempt < kNamesInOrder ? number + 1 : first;
        }
        const auto after = fileStatus(m_files.get(), name.c_str());
        BinnedItem binned{std::move(place), {}, after ? *after : item.status};
        binned.facts = ItemFacts::of(binned.status, m_hasStableInodes);
        binned.facts.volume = m_volume;
        return binned;
    }
    removeIfNew();
    return failure;
}

void TrashDirectory::noteSize(const BinnedItem& folder, std::int64_t bytes) {
    const std::string name = lastComponent(folder.place);
    if (const auto info = fileStatus(m_info.get(), infoName(name).c_str()))
        m_sizes.set(name, {bytes, info->modifiedSeconds});
}

void TrashDirectory::removeIfNew() {
    if (!m_isNew)
        return;
    m_leaving.reset();
    LeavingFolder::remove(m_folder.get());
    for (const char* part : {"files", "info"})
        ::unlinkat(m_folder.get(), part, AT_REMOVEDIR);
    ::rmdir(m_path.c_str()); // succeeds only if it is empty
}

TrashInfo TrashDirectory::infoOf(const BinRecord& record) const {
    return {m_top.empty() ? record.path : record.path.lexically_relative(m_top),
            record.deletionDate};
}

Path TrashDirectory::expectedPlace(const std::string& name) {
    const unsigned first = name == m_expectedClashName ? m_expectedClashNumber : 1;
    std::string stored;
    for (unsigned attempt = 0; attempt < kNamesInOrder; ++attempt) {
        const unsigned number = first + attempt;
        stored = storedName(name, number);
        if (m_expected.contains(stored) || fileStatus(m_info.get(), infoName(stored).c_str()))
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
    // The umask is the same for all info files: once it leaves the permissions intact, skip the
    // check.
    if (struct stat made{}; !m_givesInfoRights && ::fstat(info.get(), &made) == 0) {
        if ((made.st_mode & kInfoRights) == kInfoRights)
            m_givesInfoRights = true;
        else
            ::fchmod(info.get(), kInfoRights);
    }
    std::string_view rest = text;
    while (!rest.empty()) {
        const ssize_t written = ::write(info.get(), rest.data(), rest.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written == 0)
            errno = ENOSPC;
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

Result<std::string> TrashDirectory::infoText(const std::string& name, FileStatus* status) const {
    const std::string file = infoName(name);
    auto text = readRegularFile(m_info.get(), file.c_str(), kLongestInfo, status);
    return text ? std::move(text)
                : Error{text.error().code, marked("read"), m_path / "info" / file};
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
