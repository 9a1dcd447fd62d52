#pragma once

#include "disposal/DisposalError.h"
#include "disposal/HeldItem.h"
#include "platform/MountTable.h"
#include "platform/UserDirectories.h"

#include <optional>
#include <set>

namespace vexmoor {

/// Tells what must never be disposed of: the home folder, mount points and what holds one, the
/// Bins, what is inside one and what holds one. Files are told by device and inode, so that no
/// other name or link gets past it. What it knows is as of its making, so one serves one batch. One
/// thread.
class BinGuard {
  public:
    BinGuard(const UserDirectories& directories, MountTable& mounts);

    /// Why the item is refused; nothing where it may go.
    std::optional<DisposalError> refusal(const HeldItem& item);

    /// Whether the folder is a Bin or inside one.
    bool isInsideBin(const HeldFolder& folder);

  private:
    void learnBin(const Path& bin);
    bool findsBinAbove(const HeldFolder& folder);
    bool isVolumeBin(const HeldFolder& parent, const std::string& name);

    MountTable& m_mounts;
    std::optional<FileIdentity> m_home;
    std::set<FileIdentity> m_bins;
    std::set<FileIdentity> m_holders; ///< folders that a Bin of the user's lies in
    std::optional<FileIdentity> m_lastFolder;
    bool m_lastFolderInside = false;
};

} // namespace vexmoor
