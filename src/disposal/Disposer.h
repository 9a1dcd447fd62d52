#pragma once

#include "disposal/Bin.h"
#include "disposal/DisposeMode.h"

#include <map>
#include <optional>

namespace vexmoor {

/// Measures items, disposes of them, puts them back: the only place where the user's files are
/// moved or deleted. It keeps folders open from one item to the next, so one serves one batch; what
/// the Bin gathers is written when it goes. One thread.
class Disposer {
  public:
    using PlaceObserver = Bin::PlaceObserver;
    using DepartureObserver = Bin::DepartureObserver;

    /// The meter (optional, outlives this) counts the entries that are measured and dissolved, and
    /// stops both.
    Disposer(const UserDirectories& directories, WorkMeter* meter);
    ~Disposer();
    Disposer(const Disposer&) = delete;
    Disposer& operator=(const Disposer&) = delete;

    /// Opens the item at a standardized path for what follows; refuses what must never be disposed
    /// of (BinGuard), before anything is touched.
    Result<HeldItem> hold(const Path& path);

    /// Bytes that the item occupies on the disk; what cannot be read counts as 0.
    [[nodiscard]] std::int64_t size(const HeldItem& item) const;

    /// What was done to an item.
    struct Disposed {
        std::optional<BinnedItem> binned; ///< absent where it was dissolved
        std::int64_t bytes = 0;
        bool isFolder = false;
    };

    /// Moves the item to the Bin or deletes it. `bytes` is its size; `willTake` is told each place
    /// in the Bin before it is tried. Where another item had taken its name by then, that one is in
    /// the Bin, and its size is answered.
    Result<Disposed> dispose(const HeldItem& item, DisposeMode mode, std::int64_t bytes, Date date,
                             const PlaceObserver& willTake);

    /// Moves the binned item of the record back to the record's path, or beside it under a free
    /// name; answers where it landed. See Bin::putBack.
    Result<Path> restore(const Path& from, const BinRecord& record,
                         const DepartureObserver& willLeave);

    /// Deletes the binned item of the record.
    Result<void> erase(const Path& place, const BinRecord& record,
                       const DepartureObserver& willLeave);

    /// The place in the Bin that the item will most likely take: only a guess.
    Result<Path> expectedPlace(const HeldItem& item) { return m_bin.expectedPlace(item); }

    /// The volume that an item lies on.
    struct Volume {
        std::optional<Path> mountPoint; ///< nullopt if it can't be told
        std::string name;               ///< volumeName() of it
    };
    const Volume& volumeOf(const HeldItem& item);

    /// Whether the item of the record lies at its place in the Bin; fails with the reason.
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
