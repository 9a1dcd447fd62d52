#pragma once

#include "disposal/Bin.h"
#include "disposal/DisposeMode.h"

#include <map>
#include <optional>

namespace vexmoor {

/// Measures items, disposes of them and puts them back. The only place where user files are moved
/// or deleted. Keeps folders open between items, so use one instance per batch; the destructor
/// writes what the Bin collected. Not thread-safe.
class Disposer {
  public:
    using PlaceObserver = Bin::PlaceObserver;
    using DepartureObserver = Bin::DepartureObserver;

    /// The meter (optional, must outlive this object) counts measured and dissolved entries, and
    /// can stop both.
    Disposer(const UserDirectories& directories, WorkMeter* meter);
    ~Disposer();
    Disposer(const Disposer&) = delete;
    Disposer& operator=(const Disposer&) = delete;

    /// Opens the item at a standardized path. Fails without side effects if it must not be disposed
    /// of (BinGuard).
    Result<HeldItem> hold(const Path& path);

    /// Returns the bytes that the item occupies on disk; unreadable parts count as 0.
    [[nodiscard]] std::int64_t size(const HeldItem& item) const;

    /// The result of disposing of an item.
    struct Disposed {
        std::optional<BinnedItem> binned; ///< nullopt if it was dissolved
        std::int64_t bytes = 0;
        bool isFolder = false;
    };

    /// Moves the item to the Bin or deletes it. `bytes` is its size. Calls `willTake` with each
    /// path in the Bin before trying it. If another item has taken the name, that item is now in
    /// the Bin, and its size is returned.
    Result<Disposed> dispose(const HeldItem& item, DisposeMode mode, std::int64_t bytes, Date date,
                             const PlaceObserver& willTake);

    /// Moves the record's item from the Bin to its original path, or to a free name beside it, and
    /// returns the path. See Bin::putBack.
    Result<Path> restore(const Path& from, const BinRecord& record,
                         const DepartureObserver& willLeave);

    /// Deletes the record's item from the Bin.
    Result<void> erase(const Path& place, const BinRecord& record,
                       const DepartureObserver& willLeave);

    /// Returns the path in the Bin that the item will probably get.
    Result<Path> expectedPlace(const HeldItem& item) { return m_bin.expectedPlace(item); }

    /// The volume of an item.
    struct Volume {
        std::optional<Path> mountPoint; ///< nullopt if unknown
        std::string name;               ///< see volumeName()
    };
    const Volume& volumeOf(const HeldItem& item);

    /// Checks that the record's item is at its path in the Bin; fails with the reason.
    Result<void> check(const Path& place, const BinRecord& record);

    /// See Bin::returnLeaving.
    Result<bool> returnLeaving(const Path& place);

    /// See Bin::repairInfo.
    Result<bool> repairInfo(const Path& place, const BinRecord& record);

    /// See Bin::removeLeftInfo.
    void removeLeftInfo(const Path& place, const Path& original);

  private:
    Result<void> dissolve(const HeldItem& item);

    WorkMeter* m_meter;
    MountTable m_mounts;
    std::map<std::uint64_t, Volume> m_volumes; ///< by mount
    FolderKeeper m_folders;
    BinGuard m_guard;
    Bin m_bin;
};

} // namespace vexmoor
