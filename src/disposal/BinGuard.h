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

/// Knows what must never be disposed of: the home folder, mount points and what holds one, the
/// Bins and this program's own data, what is inside these and what holds them. Files are told by
/// device and inode, and the Bins of volumes by their place in the file system, so that no other
/// name, link or bind mount gets past it. What it knows is as of its making, so one serves one
/// batch. One thread.
class BinGuard {
  public:
    BinGuard(const UserDirectories& directories, MountTable& mounts);

    /// Why the item is refused; nothing where it may go.
    std::optional<DisposalError> refusal(const HeldItem& item);

    /// Whether the folder is a Bin or inside one.
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
    std::vector<std::pair<Path, DisposalError>> m_held; ///< of which the holders are not learnt yet
    std::map<FileIdentity, DisposalError> m_holders;    ///< what these lie in, and why that stays
    std::optional<FileIdentity> m_lastFolder;
    std::uint64_t m_lastMount = 0;
    bool m_lastIsSystem = false;
    std::optional<DisposalError> m_lastRefusal;  ///< of what is in that folder
    std::optional<Path> m_lastPath;              ///< of that folder, within its file system
    std::vector<MountTable::Mount> m_sameVolume; ///< the mounts of that file system
};

} // namespace vexmoor
