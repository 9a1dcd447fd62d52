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

/// An item in the Bin.
struct BinnedItem {
    Path place;
    ItemFacts facts;
    FileStatus status;
};

/// One Bin on the disk: an open folder with files/ and info/. Not thread-safe.
class TrashDirectory {
  public:
    /// Called with the path in the Bin before it is taken. If it fails, the item stays where it is.
    using PlaceObserver = std::function<Result<void>(const Path& place)>;

    /// An item found in files/, and the content of its info file.
    struct Found {
        std::string name;
        FileStatus status;
        std::optional<std::string> infoText{}; ///< nullopt if there is no info file
        /// The info file's status, if it shows every later change; nullopt if only the text does.
        std::optional<FileStatus> infoStatus{};
    };

    /// Opens the Bin at the path, and creates it with mode 0700 if it is missing.
    static Result<TrashDirectory> openHome(const Path& bin);

    /// Opens or creates the user's Bin at the top of a volume: $top/.Trash/$uid if an administrator
    /// has created a real, sticky $top/.Trash, otherwise $top/.Trash-$uid. Fails with noBinOnVolume
    /// and a cause.
    static Result<TrashDirectory> openOnVolume(const Path& top, uid_t user);

    /// Opens the existing Bin that contains the path of a binned item. Fails with notInBin, with
    /// goneFromBin if that Bin was deleted, and with volumeNotThere if another volume than the
    /// named one is mounted.
    static Result<TrashDirectory> openOfPlace(const Path& place, const std::string& volume);

    /// True if the path is in a Bin at the top of a volume. Does not access the file system.
    static bool isOfVolume(const Path& place);

    /// True if the path is in the Bin of a volume that is not mounted or does not answer, so that
    /// the item's state is unknown.
    static bool isOnAbsentVolume(const Path& place);

    /// Moves the item in and returns its path: creates the info file exclusively, writes it, then
    /// moves the item without replacing anything. Removes the info file again on failure, and a Bin
    /// that was created for the item. Returns the item that is at the path afterwards, because
    /// another program may have replaced the item just before the move.
    Result<BinnedItem> take(const HeldItem& item, const TrashInfo& info,
                            const PlaceObserver& willTake);

    /// Records a folder's allocated bytes for directorysizes; written by flushSizes().
    void noteSize(const BinnedItem& folder, std::int64_t bytes);

    /// Returns the path that take() will probably use for an item of that name, taking earlier
    /// results into account.
    Path expectedPlace(const std::string& name);

    /// Returns the item with that stored name if it is the record's: its info file must have the
    /// record's path and date (if the record has one); without an info file the record's facts
    /// decide. Fails with goneFromBin if it is another item or missing, with volumeNotThere if
    /// another volume may be mounted, and with withoutInfo if it cannot be decided.
    [[nodiscard]] Result<Found> find(const std::string& name, const BinRecord& record) const;

    /// Moves a found item from files/ into the leaving folder and checks it there. If it is not the
    /// same item, moves it back and fails with replaced. Afterwards the item is in leaving() under
    /// its name.
    Result<void> takeOut(const Found& item);

    /// Restores the permissions of a folder that has left the Bin; moving it may have changed them.
    static void restoreRights(int folder, const char* name, const FileStatus& status);

    /// Moves an item that was taken out back into files/, under the next free name if its own is
    /// taken.
    Result<void> giveBack(const Found& item);

    /// Moves items left in the leaving folder by an interrupted process back into files/. Returns
    /// whether the item of that name was one of them.
    Result<bool> returnLeft(const std::string& name);

    /// Deletes an item that was taken out irrecoverably. Moves what remains of a folder back.
    Result<void> erase(const Found& item, WorkMeter* meter);

    /// Removes the info file of an item that has left, and its line in directorysizes, if the info
    /// file is still that item's. A missing file is no failure.
    Result<void> removeInfo(const Found& item);

    /// Writes the info file of an item whose info file is missing or empty. Returns whether it was.
    Result<bool> repairInfo(const Found& item, const TrashInfo& info);

    /// Returns the content of the info file of that stored name. `status` (optional) receives its
    /// status before reading.
    [[nodiscard]] Result<std::string> infoText(const std::string& name,
                                               FileStatus* status = nullptr) const;

    /// True if the info file belongs to an item with that absolute original path.
    [[nodiscard]] bool names(const TrashInfo& info, const Path& original) const;

    /// Writes the changes to directorysizes. Failures are ignored: it is a cache that other
    /// programs rebuild.
    void flushSizes();

    /// True if the path still leads to the open folders.
    [[nodiscard]] bool isInPlace() const;

    [[nodiscard]] const Path& path() const { return m_path; }
    [[nodiscard]] const Path& top() const { return m_top; }
    [[nodiscard]] int files() const { return m_files.get(); }
    /// Returns the folder of the items that were taken out; -1 if none was.
    [[nodiscard]] int leaving() const { return m_leaving ? m_leaving->files() : -1; }
    /// Returns the info file's content in this Bin; its path is relative in a volume's Bin.
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
    Path m_top; ///< base of relative info paths; empty for the home Bin
    FileDescriptor m_folder;
    FileDescriptor m_files;
    FileDescriptor m_info;
    std::optional<LeavingFolder> m_leaving;
    std::uint64_t m_mountId = 0;
    std::string m_volume; ///< name of the volume's file system
    bool m_hasStableInodes = false;
    bool m_givesInfoRights = false; ///< the umask does not affect new info files
    bool m_isNew = false;           ///< created by this object and still empty
    DirectorySizes m_sizes;
    std::string m_lastClashName;
    unsigned m_lastClashNumber = 1;
    std::set<std::string> m_expected;
    std::string m_expectedClashName;
    unsigned m_expectedClashNumber = 1;
};

} // namespace vexmoor
