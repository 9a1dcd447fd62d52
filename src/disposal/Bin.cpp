#include "Bin.h"

#include "disposal/NumberedName.h"

#include <algorithm>

namespace vexmoor {

namespace {

constexpr unsigned kMostNumbers = 10000;
constexpr mode_t kOrdinaryRights = 0777; // less the umask

/// A record is data: what it names must be a plain absolute path, or nothing is moved there.
bool isUsable(const Path& destination) {
    return destination.is_absolute() && destination.has_relative_path() &&
           destination == standardized(destination) &&
           std::ranges::none_of(destination, [](const Path& part) { return part == ".."; });
}

} // namespace

Bin::Bin(const UserDirectories& directories, MountTable& mounts, BinGuard& guard)
    : m_directories(directories), m_mounts(mounts), m_guard(guard) {}

Result<Path> Bin::put(const HeldItem& item, std::int64_t bytes, Date date,
                      const PlaceObserver& willTake) {
    auto bin = binFor(item);
    if (!bin)
        return std::move(bin).error();
    auto place = take(**bin, item, bytes, date, willTake);
    if (!place && place.error().code == std::errc::no_such_file_or_directory &&
        !(*bin)->isInPlace()) {
        // Somebody deleted the whole Bin since it was opened: it is made anew, once.
        m_byMount.clear();
        m_open.clear();
        bin = binFor(item);
        if (!bin)
            return std::move(bin).error();
        place = take(**bin, item, bytes, date, willTake);
    }
    if (!place && place.error().code == std::errc::cross_device_link && (*bin)->top().empty()) {
        // One mount, and yet a border that nothing can be renamed across (a btrfs subvolume, say).
        auto other = volumeBin(item.parent->status.mountId);
        if (other)
            place = take(**other, item, bytes, date, willTake);
    }
    if (!place && place.error().code == std::errc::cross_device_link)
        return disposalError(DisposalError::noBinOnVolume, item.path);
    return place;
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
    if (opened && opened->mountId() != mountId) // another volume covers the Bin's place
        return disposalError(DisposalError::noBinOnVolume, *top);
    return keep(std::move(opened));
}

Result<TrashDirectory*> Bin::keep(Result<TrashDirectory> opened) {
    if (!opened)
        return std::move(opened).error();
    const Path path = opened->path();
    return &m_open.insert_or_assign(path, *std::move(opened)).first->second;
}

Result<TrashDirectory*> Bin::binOf(const Path& place) {
    const auto found = m_open.find(place.parent_path().parent_path());
    if (found != m_open.end() && place.parent_path().filename() == "files")
        return &found->second;
    return keep(TrashDirectory::openOfPlace(place));
}

Result<Path> Bin::take(TrashDirectory& bin, const HeldItem& item, std::int64_t bytes, Date date,
                       const PlaceObserver& willTake) {
    TrashInfo info{item.path, date};
    if (!bin.top().empty()) {
        const auto parent = currentPath(item.folder());
        if (!parent)
            return parent.error();
        info.path = (*parent / item.name).lexically_relative(bin.top());
    }
    return bin.take(item, bytes, info, willTake);
}

/// The mount that the home Bin lies on or, where it is yet to be made, will lie on.
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

Result<Path> Bin::putBack(const Path& place, const TrashInfo& record,
                          const DepartureObserver& willLeave) {
    auto bin = binOf(place);
    if (!bin)
        return std::move(bin).error();
    const std::string stored = lastComponent(place);
    const auto item = (*bin)->find(stored, record);
    if (!item)
        return item.error();
    const Path& destination = record.path;
    if (!isUsable(destination))
        return disposalError(DisposalError::invalidDestination, destination);
    if (auto made = makeFolders(destination.parent_path(), kOrdinaryRights); !made)
        return std::move(made).error();
    const auto folder = m_destinations.open(destination.parent_path());
    if (!folder)
        return Error{folder.error().code, "open", destination.parent_path()};
    if (m_guard.isInsideBin(**folder))
        return disposalError(DisposalError::invalidDestination, destination);

    const std::string wanted = lastComponent(destination);
    for (unsigned number = 1; number <= kMostNumbers; ++number) {
        const std::string name = number == 1 ? wanted : numberedName(wanted, number);
        Path landing = destination.parent_path() / name;
        if (auto noted = willLeave(*item, landing); !noted)
            return std::move(noted).error();
        const auto moved = moveWithoutReplacing((*bin)->files(), stored.c_str(),
                                                (*folder)->descriptor.get(), name.c_str());
        if (moved) {
            // The item is back; an info file that stays behind is listed as empty, nothing worse.
            (void)(*bin)->removeInfo(stored);
            return landing;
        }
        if (moved.error().code == std::errc::cross_device_link)
            return disposalError(DisposalError::otherVolume);
        if (moved.error().code != std::errc::file_exists)
            return moved.error();
    }
    return disposalError(DisposalError::noFreeName);
}

Result<void> Bin::erase(const Path& place, const TrashInfo& record,
                        const DepartureObserver& willLeave, WorkMeter* meter) {
    auto bin = binOf(place);
    if (!bin)
        return std::move(bin).error();
    const std::string stored = lastComponent(place);
    const auto item = (*bin)->find(stored, record);
    if (!item)
        return item.error();
    if (auto noted = willLeave(*item, {}); !noted)
        return noted;
    return (*bin)->erase(stored, meter);
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
    if (text->empty() || (info && (*bin)->names(*info, original))) // empty: cut short
        (void)(*bin)->removeInfo(stored); // left where it is, it is listed as empty, nothing worse
}

void Bin::flush() {
    for (auto& [path, bin] : m_open)
        bin.flushSizes();
}

} // namespace vexmoor
