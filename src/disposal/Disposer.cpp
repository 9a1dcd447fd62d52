#include "Disposer.h"

#include "disposal/TreeSize.h"
#include "disposal/WholeRemoval.h"

#include <cerrno>

namespace vexmoor {

Disposer::Disposer(const UserDirectories& directories, WorkMeter* meter)
    : m_meter(meter), m_guard(directories, m_mounts), m_bin(directories, m_mounts, m_guard) {}

Disposer::~Disposer() {
    m_bin.flush();
}

Result<HeldItem> Disposer::hold(const Path& path) {
    if (!path.is_absolute()) // the kernel may still find it, but its way back could not be told
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

std::int64_t Disposer::size(const HeldItem& item) const {
    if (item.status.isFolder())
        return treeSize(item.folder(), item.name.c_str(), m_meter);
    if (m_meter != nullptr) {
        m_meter->entries.fetch_add(1, std::memory_order_relaxed);
        m_meter->bytes.fetch_add(item.status.allocatedBytes, std::memory_order_relaxed);
    }
    return item.status.allocatedBytes;
}

Result<std::optional<Path>> Disposer::dispose(const HeldItem& item, DisposeMode mode,
                                              std::int64_t bytes, Date date,
                                              const PlaceObserver& willTake) {
    if (mode == DisposeMode::dissolve)
        return dissolve(item);
    auto place = m_bin.put(item, bytes, date, willTake);
    if (!place)
        return std::move(place).error();
    return std::optional<Path>(*std::move(place));
}

Result<std::optional<Path>> Disposer::dissolve(const HeldItem& item) {
    const auto status = fileStatus(item.folder(), item.name.c_str());
    if (status && status->identity != item.status.identity) // measuring it may have taken long
        return disposalError(DisposalError::replaced);
    if (auto removed = removeWhole(item.folder(), item.name, m_meter); !removed)
        return std::move(removed).error();
    return std::optional<Path>();
}

Result<Path> Disposer::restore(const Path& from, const TrashInfo& record,
                               const DepartureObserver& willLeave) {
    return m_bin.putBack(from, record, willLeave);
}

Result<void> Disposer::erase(const Path& place, const TrashInfo& record,
                             const DepartureObserver& willLeave) {
    return m_bin.erase(place, record, willLeave, m_meter);
}

void Disposer::removeLeftInfo(const Path& place, const Path& original) {
    m_bin.removeLeftInfo(place, original);
}

} // namespace vexmoor
