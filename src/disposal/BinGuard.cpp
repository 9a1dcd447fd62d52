#include "BinGuard.h"

namespace vexmoor {

namespace {

/// Names of the Bins at the top of a volume: ".Trash" and ".Trash-$uid", anybody's.
bool isVolumeBinName(const std::string& name) {
    return name == ".Trash" || name.starts_with(".Trash-");
}

} // namespace

BinGuard::BinGuard(const UserDirectories& directories, MountTable& mounts) : m_mounts(mounts) {
    if (const auto home = fileStatus(directories.home / "."))
        m_home = home->identity;
    learnBin(directories.dataHome / "Trash");
    const Path usual = directories.home / ".local" / "share" / "Trash";
    if (usual != directories.dataHome / "Trash")
        learnBin(usual);
}

/// The folders on the way to the Bin hold it, whether it has been made yet or not.
void BinGuard::learnBin(const Path& bin) {
    for (const char* part : {"", "files", "info"})
        if (const auto status = fileStatus(bin / part / "."))
            m_bins.insert(status->identity);
    for (Path holder = bin.parent_path();; holder = holder.parent_path()) {
        const auto status = fileStatus(holder);
        if (status)
            m_holders.insert(status->identity);
        if (status && status->isLink())
            if (const auto target = fileStatus(holder / "."))
                m_holders.insert(target->identity);
        if (!holder.has_relative_path())
            break;
    }
}

std::optional<DisposalError> BinGuard::refusal(const HeldItem& item) {
    const auto& status = item.status;
    if (m_home == status.identity)
        return DisposalError::isHome;
    if (m_bins.contains(status.identity) || isVolumeBin(*item.parent, item.name))
        return DisposalError::isBin;
    if (isInsideBin(*item.parent))
        return DisposalError::isInsideBin;
    if (status.isMountPoint || status.mountId != item.parent->status.mountId)
        return DisposalError::isMountPoint;
    if (m_holders.contains(status.identity))
        return DisposalError::holdsBin;
    if (status.isFolder()) {
        const auto parent = currentPath(item.folder());
        if (parent && m_mounts.mountBelow(*parent / item.name))
            return DisposalError::holdsMountPoint;
    }
    return std::nullopt;
}

bool BinGuard::isInsideBin(const HeldFolder& folder) {
    if (m_lastFolder != folder.status.identity) {
        m_lastFolder = folder.status.identity;
        m_lastFolderInside = findsBinAbove(folder);
    }
    return m_lastFolderInside;
}

bool BinGuard::isVolumeBin(const HeldFolder& parent, const std::string& name) {
    return parent.status.isMountPoint && isVolumeBinName(name);
}

bool BinGuard::findsBinAbove(const HeldFolder& folder) {
    if (const auto top = m_mounts.mountPoint(folder.status.mountId)) {
        const auto path = currentPath(folder.descriptor.get());
        const Path below = path ? path->lexically_relative(*top) : Path();
        if (!below.empty() && isVolumeBinName(below.begin()->native()))
            return true;
    }
    FileStatus current = folder.status;
    FileDescriptor above;
    int descriptor = folder.descriptor.get();
    while (!m_bins.contains(current.identity)) {
        auto parent = openFolder(descriptor, "..");
        const auto status =
            parent ? fileStatus(parent->get(), "") : Result<FileStatus>(FileStatus{});
        if (!parent || !status ||
            (status->identity == current.identity && status->mountId == current.mountId))
            return false;
        above = *std::move(parent);
        descriptor = above.get();
        current = *status;
    }
    return true;
}

} // namespace vexmoor
