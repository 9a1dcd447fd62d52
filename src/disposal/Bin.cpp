#include "Bin.h"

#include "base/Text.h"
#include "disposal/NumberedName.h"

#include <algorithm>

namespace vexmoor {

namespace {

constexpr unsigned kMostNumbers = 10000;
constexpr mode_t kOrdinaryRights = 0777; // less the umask

/// True for a plain absolute path. A record may be damaged or forged; nothing is moved to any other
/// path.
bool isUsable(const Path& destination) {
    return destination.is_absolute() && destination.has_relative_path() &&
           destination == standardized(destination) &&
           std::ranges::none_of(destination, [](const Path& part) { return part == ".."; });
}

} // namespace

Bin::Bin(const UserDirectories& directories, MountTable& mounts, BinGuard& guard)
    : m_directories(directories), m_mounts(mounts), m_guard(guard) {}

Result<BinnedItem> Bin::put(const HeldItem& item, Date date, const PlaceObserver& willTake) {
    auto bin = binFor(item);
    if (!bin)
        return std::move(bin).error();
    auto binned = take(**bin, item, date, willTake);
    if (!binned && binned.error().code == std::errc::no_such_file_or_directory &&
        !(*bin)->isInPlace()) {
        // Another program has deleted the whole Bin: create it again, once.
        m_byMount.clear();
        m_open.clear();
        bin = binFor(item);
        if (!bin)
            return std::move(bin).error();
        binned = take(**bin, item, date, willTake);
    }
    if (!binned && binned.error().code == std::errc::cross_device_link && (*bin)->top().empty()) {
        // Within one mount, renames can still fail at a boundary, for example of a btrfs subvolume.
        auto other = volumeBin(item.parent->status.mountId);
        if (other)
            binned = take(**other, item, date, willTake);
    }
    if (!binned && binned.error().code == std::errc::cross_device_link)
        return disposalError(DisposalError::noBinOnVolume, item.path);
    return binned;
}

Result<Path> Bin::expectedPlace(const HeldItem& item) {
    auto bin = binFor(item);
    if (!bin)
        return std::move(bin).error();
    return (*bin)->expectedPlace(item.name);
}

Result<TrashDirectory*> Bin::binFor(const HeldItem& item) {
    const auto mount = item.parent->status.mountId;
    if (const auto found = m_byMount.find(mount); found != m_byMount.end())
        return found->second;
    auto bin = mount == homeMount() ? homeBin() : volumeBin(mount);
    if (bin)
        m_byMount[mount] = *bin;
    return bin;
}

Result<TrashDirectory*> Bin::homeBin() {
    return keep(TrashDirectory::openHome(m_directories.dataHome / "Trash"));
}

Result<TrashDirectory*> Bin::volumeBin(std::uint64_t mountId) {
    const auto top = m_mounts.mountPoint(mountId);
    if (!top)
        return disposalError(DisposalError::noBinOnVolume);
    auto opened = TrashDirectory::openOnVolume(*top, m_directories.user);
    if (opened && opened->mountId() != mountId) // another volume is mounted over the Bin's path
        return disposalError(DisposalError::noBinOnVolume, *top);
    return keep(std::move(opened));
}

Result<TrashDirectory*> Bin::keep(Result<TrashDirectory> opened) {
    if (!opened)
        return std::move(opened).error();
    const Path path = opened->path();
    return &m_open.insert_or_assign(path, *std::move(opened)).first->second;
}

Result<TrashDirectory*> Bin::binOf(const Path& place, const std::string& volume) {
    const auto found = m_open.find(place.parent_path().parent_path());
    if (found != m_open.end() && place.parent_path().filename() == "files")
        return &found->second;
    return keep(TrashDirectory::openOfPlace(place, volume));
}

Result<BinnedItem> Bin::take(TrashDirectory& bin, const HeldItem& item, Date date,
                             const PlaceObserver& willTake) {
    TrashInfo info{item.path, date};
    if (!bin.top().empty()) {
        const auto parent = currentPath(item.folder());
        if (!parent)
            return parent.error();
        info.path = (*parent / item.name).lexically_relative(bin.top());
    }
    return bin.take(item, info, willTake);
}

void Bin::noteSize(const BinnedItem& folder, std::int64_t bytes) {
    if (const auto bin = binOf(folder.place))
        (*bin)->noteSize(folder, bytes);
}

/// Returns the mount that contains the home Bin or, if the Bin does not exist, will contain it.
std::uint64_t Bin::homeMount() {
    if (m_homeMount)
        return *m_homeMount;
    for (Path path = m_directories.dataHome / "Trash" / "files";; path = path.parent_path()) {
        const auto status = fileStatus(path / ".");
        if (status || !path.has_relative_path()) {
            m_homeMount = status ? status->mountId : 0;
            return *m_homeMount;
        }
    }
}

Result<Path> Bin::putBack(const Path& place, const BinRecord& record,
                          const DepartureObserver& willLeave) {
    const auto item = find(place, record);
    if (!item)
        return item.error();
    TrashDirectory& bin = **binOf(place);
    auto landed = land(bin, *item, record.path, willLeave);
    if (landed)
        // The item is back. An info file that remains is shown as an empty entry, which is
        // harmless.
        (void)bin.removeInfo(*item);
    else if (fileStatus(bin.leaving(), item->name.c_str()))
        if (auto back = bin.giveBack(*item); !back)
            return std::move(back).error();
    return landed;
}

Result<TrashDirectory::Found> Bin::find(const Path& place, const BinRecord& record) {
    if (auto returned = returnLeaving(place); !returned)
        return std::move(returned).error();
    const auto bin = binOf(place, record.facts.volume);
    if (!bin)
        return bin.error();
    return (*bin)->find(lastComponent(place), record);
}

Result<std::shared_ptr<const HeldFolder>> Bin::openDestination(const Path& destination) {
    if (!isUsable(destination))
        return disposalError(DisposalError::invalidDestination, destination);
    auto folder = m_destinations.open(destination.parent_path());
    if (!folder && folder.error().code == std::errc::no_such_file_or_directory) {
        if (auto made = makeFolders(destination.parent_path(), kOrdinaryRights); !made)
            return std::move(made).error();
        folder = m_destinations.open(destination.parent_path());
    }
    if (!folder)
        return Error{folder.error().code, marked("open"), destination.parent_path()};
    if (m_guard.isInsideBin(**folder))
        return disposalError(DisposalError::invalidDestination, destination);
    return folder;
}

/// If it fails, the item may be in the leaving folder.
Result<Path> Bin::land(TrashDirectory& bin, const TrashDirectory::Found& item,
                       const Path& destination, const DepartureObserver& willLeave) {
    const auto folder = openDestination(destination);
    if (!folder)
        return folder.error();
    const std::string wanted = lastComponent(destination);
    for (unsigned number = 1; number <= kMostNumbers; ++number) {
        const std::string name = number == 1 ? wanted : numberedName(wanted, number);
        Path landing = destination.parent_path() / name;
        if (auto noted = willLeave(item.status, landing); !noted)
            return std::move(noted).error();
        if (number == 1)
            if (auto out = bin.takeOut(item); !out)
                return std::move(out).error();
        const int target = (*folder)->descriptor.get();
        const auto moved =
            moveWithoutReplacing(bin.leaving(), item.name.c_str(), target, name.c_str());
        if (moved) {
            TrashDirectory::restoreRights(target, name.c_str(), item.status);
            return landing;
        }
        if (moved.error().code == std::errc::cross_device_link)
            return disposalError(DisposalError::otherVolume);
        if (moved.error().code != std::errc::file_exists)
            return moved.error();
    }
    return disposalError(DisposalError::noFreeName);
}

Result<void> Bin::erase(const Path& place, const BinRecord& record,
                        const DepartureObserver& willLeave, WorkMeter* meter) {
    const auto item = find(place, record);
    if (!item)
        return item.error();
    if (auto noted = willLeave(item->status, {}); !noted)
        return noted;
    TrashDirectory& bin = **binOf(place);
    if (auto out = bin.takeOut(*item); !out)
        return out;
    return bin.erase(*item, meter);
}

Result<void> Bin::check(const Path& place, const BinRecord& record) {
    const auto item = find(place, record);
    return item ? Result<void>() : item.error();
}

Result<bool> Bin::returnLeaving(const Path& place) {
    const auto bin = binOf(place);
    if (!bin)
        return false; // the next attempt to open it reports the reason
    if (!m_swept.insert((*bin)->path()).second)
        return false;
    return (*bin)->returnLeft(lastComponent(place));
}

Result<bool> Bin::repairInfo(const Path& place, const BinRecord& record) {
    const auto item = find(place, record);
    if (!item)
        return item.error();
    const auto bin = binOf(place);
    return bin ? (*bin)->repairInfo(*item, (*bin)->infoOf(record)) : bin.error();
}

void Bin::removeLeftInfo(const Path& place, const Path& original) {
    const auto bin = binOf(place);
    if (!bin)
        return;
    const std::string stored = lastComponent(place);
    const auto status = fileStatus((*bin)->files(), stored.c_str());
    if (status || status.error().code != std::errc::no_such_file_or_directory)
        return;
    const auto text = (*bin)->infoText(stored);
    if (!text)
        return;
    const auto info = TrashInfo::fromText(*text);
    if (text->empty() ||
        (info && (*bin)->names(*info, original)))      // empty: truncated by a power cut
        (void)(*bin)->removeInfo({stored, {}, *text}); // a remaining info file is harmless
}

void Bin::flush() {
    for (auto& [path, bin] : m_open)
        bin.flushSizes();
}

} // namespace vexmoor
