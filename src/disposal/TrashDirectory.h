#pragma once

#include "disposal/DirectorySizes.h"
#include "disposal/HeldItem.h"
#include "disposal/ItemFacts.h"
#include "disposal/LeavingFolder.h"
#include "disposal/TrashInfo.h"
#include "disposal/WorkMeter.h"

#include <functional>
#include <optional>
#include <set>

namespace vexmoor {

/// An item as it lies in the Bin.
struct BinnedItem {
    Path place;
    ItemFacts facts;
    FileStatus status;
};

/// One Bin on the disk: a folder with files/ and info/, held open. One thread.
class TrashDirectory {
  public:
    /// Told the place in the Bin that is about to be taken; its failure keeps the item where it is.
    using PlaceObserver = std::function<Result<void>(const Path& place)>;

    /// An item that was found in files/, and what its info file said.
    struct Found {
        std::string name;
        FileStatus status;
        std::optional<std::string> infoText{}; ///< nullopt where there is no info file
        /// Of the info file, if a change since would show in it; nullopt where only its text tells.
        std::optional<FileStatus> infoStatus{};
    };

    /// The Bin at the path, made with rights 0700 where it is missing.
    static Result<TrashDirectory> openHome(const Path& bin);

    /// The user's Bin at the top of a volume: $top/.Trash/$uid where an administrator has set that
    /// up (a real folder, sticky), else $top/.Trash-$uid. Fails with noBinOnVolume, whose
    /// cause says why.
    static Result<TrashDirectory> openOnVolume(const Path& top, uid_t user);

    /// The existing Bin that a binned item's place lies in. Fails with notInBin, with goneFromBin
    /// where somebody deleted that Bin, and with volumeNotThere, where another than the named
    /// volume is mounted there too.
    static Result<TrashDirectory> openOfPlace(const Path& place, const std::string& volume);

    /// Whether the place lies in the Bin at the top of a volume. Looks at nothing.
    static bool isOfVolume(const Path& place);

    /// Whether the place lies in the Bin of a volume that is not mounted now or does not answer, so
    /// that nothing can be said of the item.
    static bool isOnAbsentVolume(const Path& place);

    /// Moves the item in: the info file is taken exclusively and written whole, then the item moved
    /// without replacing anything; on failure the info file is removed again. Answers the place.
    /// What lies there then is looked at: another program may have put another item under the name
    /// in the meantime, and that one is in the Bin now. A Bin that was made for an item that could
    /// not go is removed again.
    Result<BinnedItem> take(const HeldItem& item, const TrashInfo& info,
                            const PlaceObserver& willTake);

    /// A folder's allocated bytes go into directorysizes at the next flushSizes().
    void noteSize(const BinnedItem& folder, std::int64_t bytes);

    /// The place that take() will most likely find for an item of that name, after those that were
    /// expected for others before.
    Path expectedPlace(const std::string& name);

    /// The item of that stored name, if it is still the one of the record: its info file says the
    /// record's path, which is absolute there, and its date where the record has one; without an
    /// info file the record's facts decide. Fails with goneFromBin where it is another or none,
    /// with volumeNotThere where that may be because another volume is mounted, with withoutInfo
    /// where it cannot be told.
    [[nodiscard]] Result<Found> find(const std::string& name, const BinRecord& record) const;

    /// Moves what was found out of files/ into the leaving folder and looks at it there; what is
    /// not the same item goes back: replaced. From then on it is leaving() + its name.
    Result<void> takeOut(const Found& item);

    /// Gives a folder that has left the Bin the rights again which taking it out may have changed.
    static void restoreRights(int folder, const char* name, const FileStatus& status);

    /// Moves what was taken out back into files/, under the next free name where its own is taken.
    Result<void> giveBack(const Found& item);

    /// Brings back into files/ what a process that ended left in the leaving folder. Answers
    /// whether the item of that name was among it.
    Result<bool> returnLeft(const std::string& name);

    /// Removes what was taken out beyond recovery; what of a folder cannot be removed is given
    /// back.
    Result<void> erase(const Found& item, WorkMeter* meter);

    /// Removes the info file of an item that has left, and its line in directorysizes; only if it
    /// is still that item's. That it is missing is no failure.
    Result<void> removeInfo(const Found& item);

    /// Writes the info file of an item that lies in the Bin without one, or with an empty one.
    /// Answers whether that was so.
    Result<bool> repairInfo(const Found& item, const TrashInfo& info);

    /// The whole info file of that stored name. `status` (optional) is how it was before that.
    [[nodiscard]] Result<std::string> infoText(const std::string& name,
                                               FileStatus* status = nullptr) const;

    /// Whether such an info file is of an item that was at the absolute path.
    [[nodiscard]] bool names(const TrashInfo& info, const Path& original) const;

    /// Writes what changed to directorysizes. It is a cache that others rebuild: failing to write
    /// it costs time, nothing else, and is not told.
    void flushSizes();

    /// Whether the folders that are held are still the ones that the path leads to.
    [[nodiscard]] bool isInPlace() const;

    [[nodiscard]] const Path& path() const { return m_path; }
    [[nodiscard]] const Path& top() const { return m_top; }
    [[nodiscard]] int files() const { return m_files.get(); }
    /// Where items are that were taken out; -1 before any was.
    [[nodiscard]] int leaving() const { return m_leaving ? m_leaving->files() : -1; }
    /// The info as it is written in this Bin: its path is relative in a volume's.
    [[nodiscard]] TrashInfo infoOf(const BinRecord& record) const;
    [[nodiscard]] std::uint64_t mountId() const { return m_mountId; }

  private:
    static Result<TrashDirectory> openAt(int directory, Path path, Path top, bool make);
    static Result<TrashDirectory> openOwn(int parent, const std::string& name, const Path& top,
                                          const Path& path, uid_t user);
    Result<void> writeInfo(const std::string& name, const std::string& text);
    [[nodiscard]] Result<std::string> freeName(const std::string& wanted,
                                               const std::optional<std::string>& infoText);
    Result<void> openLeaving();
    void returnLeftInfos();
    [[nodiscard]] bool isInfoOf(const Found& item, int infoFolder) const;
    [[nodiscard]] Error gone(const std::string& name, const BinRecord& record) const;
    [[nodiscard]] Result<bool> isOf(const std::string& name, const FileStatus& status,
                                    const std::optional<std::string>& infoText,
                                    const BinRecord& record) const;
    [[nodiscard]] bool isInfoWrittenAt(const std::string& name, Date moment) const;
    void removeIfNew();

    Path m_path;
    Path m_top; ///< what relative info paths are relative to; empty for the home Bin
    FileDescriptor m_folder;
    FileDescriptor m_files;
    FileDescriptor m_info;
    std::optional<LeavingFolder> m_leaving;
    std::uint64_t m_mountId = 0;
    std::string m_volume; ///< name of a volume's file system
    bool m_hasStableInodes = false;
    bool m_givesInfoRights = false; ///< info files are made with the rights that they need
    bool m_isNew = false;           ///< made by us, and nothing is in it yet
    DirectorySizes m_sizes;
    std::string m_lastClashName;
    unsigned m_lastClashNumber = 1;
    std::set<std::string> m_expected;
    std::string m_expectedClashName;
    unsigned m_expectedClashNumber = 1;
};

} // namespace vexmoor
