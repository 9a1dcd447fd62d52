#pragma once

#include "disposal/DisposalError.h"
#include "disposal/HeldItem.h"
#include "platform/MountTable.h"
#include "platform/UserDirectories.h"

#include <map>
#include <optional>
#include <set>

namespace vexmoor {

/// Tells what must never be disposed of: the home folder, mount points and what holds one, the
/// Bins and this program's own data, what is inside these and what holds them. Files are told by
/// device and inode, so that no other name or link gets past it. What it knows is as of its making,
/// so one serves one batch. One thread.
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
    const std::optional<DisposalError>& refusalInside(const HeldFolder& folder);
    std::optional<DisposalError> findRefusalInside(const HeldFolder& folder);
    bool isVolumeBin(const HeldFolder& parent, const std::string& name);

    MountTable& m_mounts;
    std::optional<FileIdentity> m_home;
    std::optional<FileIdentity> m_ownData;
    std::set<FileIdentity> m_bins;
    std::map<FileIdentity, DisposalError> m_holders; ///< what these lie in, and why that stays
    std::optional<FileIdentity> m_lastFolder;
    std::optional<DisposalError> m_lastRefusal; ///< of what is in that folder
};

} // namespace vexmoor
