// TrashDirectory: how items leave a Bin.
#include "TrashDirectory.h"

#include "base/Text.h"
#include "disposal/DisposalError.h"
#include "disposal/NumberedName.h"
#include "disposal/WholeRemoval.h"
#include "platform/FolderReader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <vector>

namespace vexmoor {

namespace {

constexpr unsigned kNamesToReturnUnder = 64;
constexpr double kFileTimeTolerance = 2; // seconds; the coarsest timestamps of common file systems

bool isMissing(const Error& error) {
    return error.code == std::errc::no_such_file_or_directory;
}

bool isTaken(const Error& error) {
    return error.code == std::errc::file_exists;
}

bool isSameItem(const FileStatus& one, const FileStatus& other) {
    return one.identity == other.identity || ItemFacts::of(one, false).fit(other);
}

/// True if any later change or replacement of the file is visible in its status: a write changes
/// the modification time if the last write is more than a clock tick ago; a replacement changes the
/// birth time.
bool showsChanges(const FileStatus& status) {
    constexpr double kClockStep = 0.1; // seconds; ten times the tick of the slowest kernel clock
    const double modified =
        static_cast<double>(status.modifiedSeconds) + status.modifiedFraction * 1e-9;
    return status.birthNanoseconds != 0 && status.modifiedFraction != 0 &&
           Date::now().unixSeconds() - modified > kClockStep;
}

bool isUnchanged(const FileStatus& then, const FileStatus& now) {
    return then.identity == now.identity && then.birthNanoseconds == now.birthNanoseconds &&
           then.modifiedSeconds == now.modifiedSeconds &&
           then.modifiedFraction == now.modifiedFraction && then.size == now.size;
}

std::vector<std::string> namesIn(int folder) {
    std::vector<std::string> names;
    const FileDescriptor readable(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    FolderReader reader;
    if (!readable)
        return names;
    for (auto size = reader.read(readable.get()); size && *size > 0;
         size = reader.read(readable.get()))
        while (const FolderEntry* entry = reader.next())
            names.emplace_back(entry->name);
    return names;
}

/// Moves an entry into a private folder.
Result<void> moveToOurs(int from, int to, const char* name) {
    return moveWithoutReplacing(from, name, to, name, [to] { return to; });
}

/// Moves an entry even if it is a read-only folder: changing the parent of a folder updates its
/// "..", which requires write permission on it.
Result<void> moveEvenLocked(int from, int to, const char* name) {
    auto moved = moveToOurs(from, to, name);
    if (moved || moved.error().code != std::errc::permission_denied)
        return moved;
    const auto status = fileStatus(from, name);
    const bool isLocked = status && status->isFolder() && (status->mode & S_IWUSR) == 0;
    if (!isLocked || ::fchmodat(from, name, (status->mode & 07777) | S_IWUSR, 0) != 0)
        return moved;
    return moveToOurs(from, to, name);
}

} // namespace

void TrashDirectory::restoreRights(int folder, const char* name, const FileStatus& status) {
    if (status.isFolder() && (status.mode & S_IWUSR) == 0)
        ::fchmodat(folder, name, status.mode & 07777, 0);
}

Error TrashDirectory::gone(const std::string& name, const BinRecord& record) const {
    const bool isOther = !record.facts.volume.empty() && record.facts.volume != m_volume;
    return disposalError(isOther ? DisposalError::volumeNotThere : DisposalError::goneFromBin,
                         m_path / "files" / name);
}

Result<TrashDirectory::Found> TrashDirectory::find(const std::string& name,
                                                   const BinRecord& record) const {
    const auto status = fileStatus(m_files.get(), name.c_str());
    if (!status)
        return isMissing(status.error()) ? gone(name, record) : status.error();
    FileStatus infoStatus;
    auto text = infoText(name, &infoStatus);
    if (!text && !isMissing(text.error()) && !record.facts.fit(*status))
        return std::move(text).error();
    Found found{name, *status};
    if (text) {
        found.infoText = *std::move(text);
        if (m_hasStableInodes && showsChanges(infoStatus))
            found.infoStatus = infoStatus;
    }
    const auto isOurs = isOf(name, *status, found.infoText, record);
    if (!isOurs)
        return isOurs.error();
    return *isOurs ? Result<Found>(std::move(found)) : gone(name, record);
}

/// Fails with withoutInfo if it cannot be decided.
Result<bool> TrashDirectory::isOf(const std::string& name, const FileStatus& status,
                                  const std::optional<std::string>& infoText,
                                  const BinRecord& record) const {
    if (infoText && *infoText == infoOf(record).toText())
        return true; // the usual case, without parsing
    const auto info = TrashInfo::fromText(infoText.value_or(std::string()));
    if (info && !names(*info, record.path))
        return false;
    if (info && !record.deletionDate)
        return true;
    if (info && info->deletionDate) {
        if (info->isOfMoment(*record.deletionDate))
            return true;
        if (!isZoneShift(info->deletionDate->unixSeconds() -
                         std::floor(record.deletionDate->unixSeconds())))
            return false;
        if (isInfoWrittenAt(name, *record.deletionDate))
            return true;
    }
    if (record.facts.fit(status))
        return true;
    return disposalError(DisposalError::withoutInfo);
}

bool TrashDirectory::isInfoWrittenAt(const std::string& name, Date moment) const {
    const auto file = fileStatus(m_info.get(), infoName(name).c_str());
    return file && std::abs(static_cast<double>(file->modifiedSeconds) -
                            std::floor(moment.unixSeconds())) <= kFileTimeTolerance;
}

/// Also resolves links in the original's parent folder: relative paths in an info file have none.
bool TrashDirectory::names(const TrashInfo& info, const Path& original) const {
    const Path named = m_top / info.path;
    if (named == original || m_top.empty())
        return named == original;
    std::error_code code;
    const auto folder = std::filesystem::weakly_canonical(original.parent_path(), code);
    return !code && named == folder / original.filename();
}

Result<void> TrashDirectory::openLeaving() {
    if (m_leaving)
        return {};
    auto opened = LeavingFolder::open(m_folder.get());
    if (!opened)
        return Error{opened.error().code, marked("make the folder"), m_path / LeavingFolder::kName};
    m_leaving = *std::move(opened);
    return {};
}

Result<void> TrashDirectory::takeOut(const Found& item) {
    if (auto opened = openLeaving(); !opened)
        return opened;
    const char* const name = item.name.c_str();
    if (auto moved = moveEvenLocked(m_files.get(), leaving(), name); !moved)
        return isMissing(moved.error())
                   ? disposalError(DisposalError::goneFromBin, m_path / "files" / item.name)
                   : std::move(moved);
    const auto taken = fileStatus(leaving(), name);
    if (taken && isSameItem(item.status, *taken) && isInfoOf(item, m_info.get()))
        return {};
    const auto text = infoText(item.name);
    if (auto back = giveBack({item.name, item.status, text ? std::optional(*text) : std::nullopt});
        !back)
        return back;
    return disposalError(DisposalError::replaced);
}

/// True if the item's info file in that folder is still the one that was found. Compares its status
/// if that shows every change, otherwise its text.
bool TrashDirectory::isInfoOf(const Found& item, int infoFolder) const {
    const std::string file = infoName(item.name);
    if (item.infoStatus)
        if (const auto now = fileStatus(infoFolder, file.c_str());
            now && isUnchanged(*item.infoStatus, *now))
            return true;
    const auto text = readRegularFile(infoFolder, file.c_str(), kLongestInfo);
    return text ? item.infoText == *text : !item.infoText;
}

/// An item that gets a numbered name needs a copy of its info file under that name.
Result<void> TrashDirectory::giveBack(const Found& item) {
    auto moved =
        moveWithoutReplacing(leaving(), item.name.c_str(), m_files.get(), item.name.c_str());
    for (unsigned number = 2; !moved && isTaken(moved.error()) && number <= kNamesToReturnUnder;
         ++number) {
        const std::string name = storedName(item.name, number);
        auto written = item.infoText ? writeInfo(name, *item.infoText) : Result<void>();
        if (!written) {
            moved = std::move(written);
            continue;
        }
        moved = moveWithoutReplacing(leaving(), item.name.c_str(), m_files.get(), name.c_str());
        if (!moved && item.infoText)
            ::unlinkat(m_info.get(), infoName(name).c_str(), 0);
    }
    if (moved) {
        restoreRights(m_files.get(), item.name.c_str(), item.status);
        return {};
    }
    return Error{moved.error().code, marked("move back into the Bin what is at"),
                 m_path / LeavingFolder::kName / "files" / item.name};
}

Result<bool> TrashDirectory::returnLeft(const std::string& name) {
    if (::faccessat(m_folder.get(), LeavingFolder::kName, F_OK, AT_SYMLINK_NOFOLLOW) != 0)
        return false;
    if (auto opened = openLeaving(); !opened)
        return std::move(opened).error();
    bool wasThere = false;
    for (const auto& left : namesIn(leaving())) {
        const auto status = fileStatus(leaving(), left.c_str());
        const auto other = fileStatus(m_files.get(), left.c_str());
        if (status && other && status->identity == other->identity) {
            ::unlinkat(leaving(), left.c_str(),
                       0); // a second hard link to an item that was moved back
            continue;
        }
        const auto text = infoText(left);
        const std::optional<std::string> info = text ? std::optional(*text) : std::nullopt;
        if (auto back = giveBack({left, status ? *status : FileStatus(), info}); !back)
            return std::move(back).error();
        wasThere = wasThere || left == name;
    }
    returnLeftInfos();
    return wasThere;
}

/// Moves an info file back if its item is in the Bin: it was taken out only to be checked.
void TrashDirectory::returnLeftInfos() {
    for (const auto& file : namesIn(m_leaving->info())) {
        const auto stored =
            file.substr(0, file.size() - std::min(file.size(), infoName({}).size()));
        const bool isOfItem =
            file == infoName(stored) && fileStatus(m_files.get(), stored.c_str()).ok();
        if (!isOfItem ||
            !moveWithoutReplacing(m_leaving->info(), file.c_str(), m_info.get(), file.c_str()))
            ::unlinkat(m_leaving->info(), file.c_str(), 0);
    }
}

Result<void> TrashDirectory::erase(const Found& item, WorkMeter* meter) {
    if (auto removed = removeWhole(leaving(), item.name, meter); !removed) {
        if (fileStatus(leaving(), item.name.c_str()))
            if (auto back = giveBack(item); !back)
                return back;
        return removed;
    }
    return removeInfo(item);
}

/// Takes the info file out of the Bin before checking it, because another program may have emptied
/// the Bin and added an item with the same name.
Result<void> TrashDirectory::removeInfo(const Found& item) {
    m_sizes.remove(item.name);
    if (!item.infoText)
        return {};
    if (auto opened = openLeaving(); !opened)
        return opened;
    const std::string file = infoName(item.name);
    const char* const name = file.c_str();
    const auto moved = moveToOurs(m_info.get(), m_leaving->info(), name);
    if (!moved)
        return isMissing(moved.error())
                   ? Result<void>()
                   : Error{moved.error().code, marked("remove"), m_path / "info" / file};
    if (!isInfoOf(item, m_leaving->info()) &&
        moveWithoutReplacing(m_leaving->info(), name, m_info.get(), name))
        return {};
    if (::unlinkat(m_leaving->info(), name, 0) != 0 && errno != ENOENT)
        return Error::fromErrno(errno, "remove", m_path / "info" / file);
    return {};
}

Result<bool> TrashDirectory::repairInfo(const Found& item, const TrashInfo& info) {
    if (item.infoText && !item.infoText->empty())
        return false;
    if (item.infoText) {
        const std::string file = infoName(item.name);
        if (::unlinkat(m_info.get(), file.c_str(), 0) != 0 && errno != ENOENT)
            return Error::fromErrno(errno, "remove", m_path / "info" / file);
    }
    if (auto written = writeInfo(item.name, info.toText()); !written)
        return std::move(written).error();
    return true;
}

} // namespace vexmoor
