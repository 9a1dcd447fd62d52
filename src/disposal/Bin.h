#pragma once

#include "disposal/BinGuard.h"
#include "disposal/TrashDirectory.h"

#include <map>
#include <set>

namespace vexmoor {

/// The user's Bin: the FreeDesktop.org Trash of each volume (docs/bin.md). Caches open Bins, so use
/// one instance per batch and call flush() at its end. Not thread-safe.
class Bin {
  public:
    using PlaceObserver = TrashDirectory::PlaceObserver;
    /// Called before a binned item leaves, with the path to be tried for it (empty if it is
    /// deleted). If it fails, the item stays.
    using DepartureObserver =
        std::function<Result<void>(const FileStatus& item, const Path& landing)>;

    Bin(const UserDirectories& directories, MountTable& mounts, BinGuard& guard);

    /// Moves the item into the Bin of its volume and returns the item that is there afterwards.
    /// Never copies: if no Bin accepts the item by a rename, it stays where it is.
    Result<BinnedItem> put(const HeldItem& item, Date date, const PlaceObserver& willTake);

    /// Records the allocated bytes of a folder in the Bin, for directorysizes.
    void noteSize(const BinnedItem& folder, std::int64_t bytes);

    /// Returns the path in the Bin that put() will probably use for the item.
    Result<Path> expectedPlace(const HeldItem& item);

    /// Moves a binned item to the record's path, or to a numbered name beside it if that is taken.
    /// Creates missing folders. Returns the new path. Moves only the record's item
    /// (TrashDirectory::find), even if another program replaces it during the operation.
    Result<Path> putBack(const Path& place, const BinRecord& record,
                         const DepartureObserver& willLeave);

    /// Deletes a binned item irrecoverably, with the same checks as putBack().
    Result<void> erase(const Path& place, const BinRecord& record,
                       const DepartureObserver& willLeave, WorkMeter* meter);

    /// Succeeds if the record's item is at the place; otherwise fails with the reason.
    Result<void> check(const Path& place, const BinRecord& record);

    /// Moves all items that an interrupted process had taken out of this Bin back into it. Returns
    /// whether the item of this place was one of them.
    Result<bool> returnLeaving(const Path& place);

    /// Writes the info file of the record's item if it is missing or empty. Returns whether it was.
    Result<bool> repairInfo(const Path& place, const BinRecord& record);

    /// Removes the info file left by an interrupted move: only if the Bin has no such item, and the
    /// file is empty or was written for `original`.
    void removeLeftInfo(const Path& place, const Path& original);

    /// Writes the collected folder sizes.
    void flush();

  private:
    Result<TrashDirectory*> binFor(const HeldItem& item);
    Result<TrashDirectory*> homeBin();
    Result<TrashDirectory*> volumeBin(std::uint64_t mountId);
    Result<TrashDirectory*> binOf(const Path& place, const std::string& volume = {});
    Result<TrashDirectory*> keep(Result<TrashDirectory> opened);
    Result<BinnedItem> take(TrashDirectory& bin, const HeldItem& item, Date date,
                            const PlaceObserver& willTake);
    Result<TrashDirectory::Found> find(const Path& place, const BinRecord& record);
    Result<std::shared_ptr<const HeldFolder>> openDestination(const Path& destination);
    Result<Path> land(TrashDirectory& bin, const TrashDirectory::Found& item,
                      const Path& destination, const DepartureObserver& willLeave);
    std::uint64_t homeMount();

    UserDirectories m_directories;
    MountTable& m_mounts;
    BinGuard& m_guard;
    std::map<Path, TrashDirectory> m_open;
    std::map<std::uint64_t, TrashDirectory*> m_byMount;
    std::set<Path> m_swept; ///< Bins whose leaving folder was emptied
    FolderKeeper m_destinations;
    std::optional<std::uint64_t> m_homeMount;
};

} // namespace vexmoor
