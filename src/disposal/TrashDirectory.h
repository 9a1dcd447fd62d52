#pragma once

#include "disposal/DirectorySizes.h"
#include "disposal/HeldItem.h"
#include "disposal/TrashInfo.h"
#include "disposal/WorkMeter.h"

#include <functional>
#include <set>

namespace vexmoor {

/// One Bin on the disk: a folder with files/ and info/, held open. One thread.
class TrashDirectory {
  public:
    /// Told the place in the Bin that is about to be taken; its failure keeps the item where it is.
    using PlaceObserver = std::function<Result<void>(const Path& place)>;

    /// The Bin at the path, made with rights 0700 where it is missing.
    static Result<TrashDirectory> openHome(const Path& bin);

    /// The user's Bin at the top of a volume: $top/.Trash/$uid where an administrator has set that
    /// up (a real folder, sticky), else $top/.Trash-$uid. Fails with noBinOnVolume.
    static Result<TrashDirectory> openOnVolume(const Path& top, uid_t user);

    /// The existing Bin that a binned item's place lies in. Fails with notInBin, with goneFromBin
    /// where somebody deleted that Bin, and with volumeNotThere.
    static Result<TrashDirectory> openOfPlace(const Path& place);

    /// Whether the place lies in the Bin of a volume that is not mounted now, so that nothing can
    /// be said of the item.
    static bool isOnAbsentVolume(const Path& place);

    /// Moves the item in: the info file is taken exclusively and written whole, then the item moved
    /// without replacing anything; on failure the info file is removed again. Answers the place.
    /// A folder's allocated bytes go into directorysizes at the next flushSizes().
    Result<Path> take(const HeldItem& item, std::int64_t bytes, const TrashInfo& info,
                      const PlaceObserver& willTake);

    /// The place that take() will most likely find for an item of that name, after those that were
    /// expected for others before.
    Path expectedPlace(const std::string& name);

    /// The item of that stored name, if it is still the one of the record: its info file says the
    /// record's path, which is absolute there, and its date where the record has one. Fails with
    /// goneFromBin where it is another or none, with withoutInfo where that cannot be told.
    [[nodiscard]] Result<FileStatus> find(const std::string& name, const TrashInfo& record) const;

    /// Removes the item of that stored name beyond recovery, whichever it is, then its info file.
    Result<void> erase(const std::string& name, WorkMeter* meter);

    /// Removes the info file; that it is missing is no failure.
    Result<void> removeInfo(const std::string& name);

    /// The whole info file of that stored name.
    [[nodiscard]] Result<std::string> infoText(const std::string& name) const;

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
    [[nodiscard]] std::uint64_t mountId() const { return m_mountId; }

  private:
    static Result<TrashDirectory> openAt(int directory, Path path, Path top, bool make);
    Result<void> writeInfo(const std::string& name, const std::string& text);

    Path m_path;
    Path m_top; ///< what relative info paths are relative to; empty for the home Bin
    FileDescriptor m_folder;
    FileDescriptor m_files;
    FileDescriptor m_info;
    std::uint64_t m_mountId = 0;
    DirectorySizes m_sizes;
    std::string m_lastClashName;
    unsigned m_lastClashNumber = 1;
    std::set<std::string> m_expected;
    std::string m_expectedClashName;
    unsigned m_expectedClashNumber = 1;
};

} // namespace vexmoor
