#include "BinGuard.h"

#include <functional>

namespace vexmoor {

namespace {

/// Names of the Bins at the top of a volume: ".Trash" and ".Trash-$uid", anybody's.
bool isVolumeBinName(const std::string& name) {
    return name == ".Trash" || name.starts_with(".Trash-");
}

/// Visits the folder and those above it, as they really lie in each other, until the visitor says
/// no or the root is reached.
void climb(int folder, const std::function<bool(const FileIdentity&)>& visitor) {
    FileDescriptor held;
    auto current = fileStatus(folder, "");
    while (current && visitor(current->identity)) {
        auto parent = openFolder(held ? held.get() : folder, "..");
        auto above = parent ? fileStatus(parent->get(), "") : std::move(parent).error();
        if (!above || (above->identity == current->identity && above->mountId == current->mountId))
            return;
        held = *std::move(parent);
        current = std::move(above);
    }
}

} // namespace

BinGuard::BinGuard(const UserDirectories& directories, MountTable& mounts) : m_mounts(mounts) {
    if (const auto home = fileStatus(directories.home / "."))
        m_home = home->identity;
    learnBin(directories.dataHome / "Trash");
    const Path usual = directories.home / ".local" / "share" / "Trash";
    if (usual != directories.dataHome / "Trash")
        learnBin(usual);
    if (const auto own = fileStatus(directories.ownData() / "."))
        m_ownData = own->identity;
    learnHolders(directories.ownData(), DisposalError::isOwnData);
}

void BinGuard::learnBin(const Path& bin) {
    for (const char* part : {"", "files", "info"})
        if (const auto status = fileStatus(bin / part / "."))
            m_bins.insert(status->identity);
    learnHolders(bin, DisposalError::holdsBin);
}

/// The folders and links on the way there hold it, whether it has been made yet or not, and so do
/// the folders that a link leads into.
void BinGuard::learnHolders(const Path& path, DisposalError refusal) {
    for (Path part = path;; part = part.parent_path()) {
        const auto status = fileStatus(part);
        if (status && (part != path || status->isLink()))
            m_holders.emplace(status->identity, refusal);
        if (status && status->isLink())
            if (const auto target = openFolder(part))
                climb(target->get(), [&](const FileIdentity& folder) {
                    m_holders.emplace(folder, refusal);
                    return true;
                });
        if (!part.has_relative_path())
            break;
    }
}

std::optional<DisposalError> BinGuard::refusal(const HeldItem& item) {
    const auto& status = item.status;
    if (m_home == status.identity)
        return DisposalError::isHome;
    if (m_bins.contains(status.identity) || isVolumeBin(*item.parent, item.name))
        return DisposalError::isBin;
    if (m_ownData == status.identity)
        return DisposalError::isOwnData;
    if (const auto& inside = refusalInside(*item.parent))
        return inside;
    if (status.isMountPoint || status.mountId != item.parent->status.mountId)
        return DisposalError::isMountPoint;
    if (const auto holder = m_holders.find(status.identity); holder != m_holders.end())
        return holder->second;
    if (status.isFolder()) {
        const auto parent = currentPath(item.folder());
        if (parent && m_mounts.mountBelow(*parent / item.name))
            return DisposalError::holdsMountPoint;
    }
    return std::nullopt;
}

bool BinGuard::isInsideBin(const HeldFolder& folder) {
    return refusalInside(folder) == DisposalError::isInsideBin;
}

const std::optional<DisposalError>& BinGuard::refusalInside(const HeldFolder& folder) {
    if (m_lastFolder != folder.status.identity) {
        m_lastFolder = folder.status.identity;
        m_lastRefusal = findRefusalInside(folder);
    }
    return m_lastRefusal;
}

bool BinGuard::isVolumeBin(const HeldFolder& parent, const std::string& name) {
    return parent.status.isMountPoint && isVolumeBinName(name);
}

std::optional<DisposalError> BinGuard::findRefusalInside(const HeldFolder& folder) {
    if (const auto top = m_mounts.mountPoint(folder.status.mountId)) {
        const auto path = currentPath(folder.descriptor.get());
        const Path below = path ? path->lexically_relative(*top) : Path();
        if (!below.empty() && isVolumeBinName(below.begin()->native()))
            return DisposalError::isInsideBin;
    }
    std::optional<DisposalError> refusal;
    climb(folder.descriptor.get(), [&](const FileIdentity& above) {
        if (m_bins.contains(above))
            refusal = DisposalError::isInsideBin;
        else if (m_ownData == above)
            refusal = DisposalError::isOwnData;
        return !refusal;
    });
    return refusal;
}

} // namespace vexmoor
