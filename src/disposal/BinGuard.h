#pragma once

#include "disposal/DisposalError.h"
#include "disposal/HeldItem.h"
#include "platform/MountTable.h"
#include "platform/UserDirectories.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vexmoor {

/// Recognises what must not be disposed of: the home folder, mount points, Bins and this program's
/// own data, everything inside the latter two, and every folder that contains one of these.
/// Compares files by device and inode, and Bins of volumes by their path in the file system, so
/// that other names, links and bind mounts are recognised. Its data is not updated, so use one
/// instance per batch. Not thread-safe.
class BinGuard {
  public:
    BinGuard(const UserDirectories& directories, MountTable& mounts);

    /// Returns why the item is refused; nullopt if it may be disposed of.
    std::optional<DisposalError> refusal(const HeldItem& item);

    /// True if the folder is a Bin or inside one.
    bool isInsideBin(const HeldFolder& folder);

  private:
    void learnBin(const Path& bin);
    void learnHolders(const Path& path, DisposalError refusal);
    std::optional<DisposalError> findRefusalInside(const HeldFolder& folder);
    [[nodiscard]] bool isVolumeBin(const HeldFolder& parent, const std::string& name) const;
    [[nodiscard]] bool holdsVolumeBin(const std::string& name) const;
    std::optional<DisposalError> whatItHolds(const FileIdentity& item);
    bool holdsMount(const HeldItem& item);
    void lookAt(const HeldFolder& folder);

    MountTable& m_mounts;
    std::string m_user;
    std::set<FileIdentity> m_homes;
    std::optional<FileIdentity> m_ownData;
    std::set<FileIdentity> m_bins;
    std::vector<std::pair<Path, DisposalError>>
        m_held; ///< paths whose containing folders are not known yet
    std::map<FileIdentity, DisposalError>
        m_holders; ///< folders and links that lead to these, and why they are refused
    std::optional<FileIdentity> m_lastFolder;
    std::uint64_t m_lastMount = 0;
    bool m_lastIsSystem = false;
    std::optional<DisposalError> m_lastRefusal;  ///< of all items in that folder
    std::optional<Path> m_lastPath;              ///< of that folder, relative to its file system
    std::vector<MountTable::Mount> m_sameVolume; ///< all mounts of that file system
};

} // namespace vexmoor
