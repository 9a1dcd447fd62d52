#pragma once

#include "disposal/BinGuard.h"
#include "disposal/TrashDirectory.h"

#include <map>
#include <set>

namespace vexmoor {

/// The user's Bin: the FreeDesktop.org Trash of each volume (docs/bin.md). It keeps what it opened,
/// so one serves one batch; flush() at the batch's end. One thread.
class Bin {
  public:
    using PlaceObserver = TrashDirectory::PlaceObserver;
    /// Told of a binned item that is about to leave, and of the path that is tried for it, empty
    /// where it is deleted; its failure keeps the item where it is.
    using DepartureObserver =
        std::function<Result<void>(const FileStatus& item, const Path& landing)>;

    Bin(const UserDirectories& directories, MountTable& mounts, BinGuard& guard);

    /// Moves the item into the Bin of its volume and answers what is there then. It is never
    /// copied: without a Bin that it can be renamed into it stays where it is.
    Result<BinnedItem> put(const HeldItem& item, Date date, const PlaceObserver& willTake);

    /// Records the allocated bytes of a folder in the Bin, for directorysizes.
    void noteSize(const BinnedItem& folder, std::int64_t bytes);

    /// The place that put() will most likely find for the item.
    Result<Path> expectedPlace(const HeldItem& item);

    /// Moves a binned item to the record's path, or beside it under a numbered name where that is
    /// taken; missing folders are made. Answers where it landed. Only the item of the record
    /// leaves, whatever else lies at its place by now (TrashDirectory::find), and whatever takes
    /// its place while it is looked at.
    Result<Path> putBack(const Path& place, const BinRecord& record,
                         const DepartureObserver& willLeave);

    /// Deletes a binned item beyond recovery, under the same condition.
    Result<void> erase(const Path& place, const BinRecord& record,
                       const DepartureObserver& willLeave, WorkMeter* meter);

    /// Whether the item of the record lies at the place; fails with the reason.
    Result<void> check(const Path& place, const BinRecord& record);

    /// Brings an item back to its place that a process which ended had taken out of the Bin, with
    /// all others of that Bin. Answers whether it was so.
    Result<bool> returnLeaving(const Path& place);

    /// Writes the info file of the record's item where it is missing or empty. Answers whether it
    /// was.
    Result<bool> repairInfo(const Path& place, const BinRecord& record);

    /// Removes the info file that an interrupted move left behind: only where the Bin holds no such
    /// item and the file is the one that was written for `original`, or was cut off before a byte.
    void removeLeftInfo(const Path& place, const Path& original);

    /// Writes what is gathered about folders' sizes.
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
    std::set<Path> m_swept; ///< Bins that hold nothing any more that a process left leaving
    FolderKeeper m_destinations;
    std::optional<std::uint64_t> m_homeMount;
};

} // namespace vexmoor
