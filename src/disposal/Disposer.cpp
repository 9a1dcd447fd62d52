#include "Disposer.h"

#include "base/Saturated.h"
#include "disposal/TreeSize.h"
#include "disposal/WholeRemoval.h"
#include "platform/Volume.h"

#include <fcntl.h>

#include <cerrno>

namespace vexmoor {

Disposer::Disposer(const UserDirectories& directories, WorkMeter* meter)
    : m_meter(meter), m_guard(directories, m_mounts), m_bin(directories, m_mounts, m_guard) {}

Disposer::~Disposer() {
    m_bin.flush();
}

Result<HeldItem> Disposer::hold(const Path& path) {
    if (!path.is_absolute()) // a relative path could not be recorded for putting back
        return Error::fromErrno(ENOENT, "find the current folder");
    if (!path.has_relative_path())
        return disposalError(DisposalError::isRoot);
    auto item = m_folders.hold(path);
    if (!item)
        return item;
    if (const auto refused = m_guard.refusal(*item))
        return disposalError(*refused);
    return item;
}

const Disposer::Volume& Disposer::volumeOf(const HeldItem& item) {
    const auto mount = item.parent->status.mountId;
    const auto [volume, isNew] = m_volumes.try_emplace(mount);
    if (isNew)
        volume->second = {m_mounts.mountPoint(mount), volumeName(item.folder())};
    return volume->second;
}

std::int64_t Disposer::size(const HeldItem& item) const {
    if (item.status.isFolder())
        return treeSize(item.folder(), item.name.c_str(), m_meter);
    if (m_meter != nullptr) {
        m_meter->entries.fetch_add(1, std::memory_order_relaxed);
        addSaturated(m_meter->bytes, item.status.allocatedBytes);
    }
    return item.status.allocatedBytes;
}

Result<Disposer::Disposed> Disposer::dispose(const HeldItem& item, DisposeMode mode,
                                             std::int64_t bytes, Date date,
                                             const PlaceObserver& willTake) {
    if (mode == DisposeMode::dissolve) {
        if (auto dissolved = dissolve(item); !dissolved)
            return std::move(dissolved).error();
        return Disposed{std::nullopt, bytes, item.status.isFolder()};
    }
    auto binned = m_bin.put(item, date, willTake);
    if (!binned)
        return std::move(binned).error();
    const FileStatus& now = binned->status;
    if (now.identity != item.status.identity)
        bytes = now.isFolder() ? treeSize(AT_FDCWD, binned->place.c_str()) : now.allocatedBytes;
    const bool isFolder = now.isFolder();
    if (isFolder)
        m_bin.noteSize(*binned, bytes);
    return Disposed{*std::move(binned), bytes, isFolder};
}

Result<void> Disposer::dissolve(const HeldItem& item) {
    const auto status = fileStatus(item.folder(), item.name.c_str());
    if (status &&
        status->identity !=
            item.status.identity) // measuring takes time, during which the item can be replaced
        return disposalError(DisposalError::replaced);
    return removeWhole(item.folder(), item.name, m_meter);
}

Result<Path> Disposer::restore(const Path& from, const BinRecord& record,
                               const DepartureObserver& willLeave) {
    return m_bin.putBack(from, record, willLeave);
}

Result<void> Disposer::erase(const Path& place, const BinRecord& record,
                             const DepartureObserver& willLeave) {
    return m_bin.erase(place, record, willLeave, m_meter);
}

Result<void> Disposer::check(const Path& place, const BinRecord& record) {
    return m_bin.check(place, record);
}

Result<bool> Disposer::returnLeaving(const Path& place) {
    return m_bin.returnLeaving(place);
}

Result<bool> Disposer::repairInfo(const Path& place, const BinRecord& record) {
    return m_bin.repairInfo(place, record);
}

void Disposer::removeLeftInfo(const Path& place, const Path& original) {
    m_bin.removeLeftInfo(place, original);
}

} // namespace vexmoor
