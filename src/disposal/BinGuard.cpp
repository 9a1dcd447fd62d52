#include "BinGuard.h"

#include "disposal/LeavingFolder.h"
#include "disposal/TreeSize.h"
#include "platform/Volume.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace vexmoor {

namespace {

/// True for names of any user's Bin at the top of a volume: ".Trash" and ".Trash-$uid".
bool isVolumeBinName(const std::string& name) {
    return name == ".Trash" || name.starts_with(".Trash-");
}

/// True if `path` is `folder` or below it; both must be absolute.
bool isWithin(const Path& path, const Path& folder) {
    const Path below = path.lexically_relative(folder);
    return !below.empty() && *below.begin() != "..";
}

/// Visits the folder and its parents, by "..", until the visitor returns false or the root is
/// reached.
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

BinGuard::BinGuard(const UserDirectories& directories, MountTable& mounts)
    : m_mounts(mounts), m_user(std::to_string(directories.user)) {
    std::set<Path> bins = {directories.dataHome / "Trash"};
    for (const Path& home : {directories.home, directories.accountHome}) {
        if (home.empty())
            continue;
        if (const auto status = fileStatus(home / "."))
            m_homes.insert(status->identity);
        bins.insert(home / ".local" / "share" / "Trash");
    }
    for (const Path& bin : bins)
        learnBin(bin);
    if (const auto own = fileStatus(directories.ownData() / "."))
        m_ownData = own->identity;
    m_held.emplace_back(directories.ownData(), DisposalError::isOwnData);
}

void BinGuard::learnBin(const Path& bin) {
    for (const char* part : {"", "files", "info", LeavingFolder::kName})
        if (const auto status = fileStatus(bin / part / "."))
            m_bins.insert(status->identity);
    m_held.emplace_back(bin, DisposalError::holdsBin);
}

/// Registers every folder and link on the way to the path, whether the path exists or not, and the
/// parents of each link's target.
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
    lookAt(*item.parent);
    if (m_homes.contains(status.identity))
        return DisposalError::isHome;
    if (m_bins.contains(status.identity) || isVolumeBin(*item.parent, item.name))
        return DisposalError::isBin;
    if (m_ownData == status.identity)
        return DisposalError::isOwnData;
    if (m_lastRefusal)
        return m_lastRefusal;
    if (status.isMountPoint || status.mountId != item.parent->status.mountId)
        return DisposalError::isMountPoint;
    if (m_lastIsSystem)
        return DisposalError::isPartOfSystem;
    if (status.isFolder() || status.isLink())
        if (const auto holds = whatItHolds(status.identity))
            return holds;
    if (!status.isFolder())
        return std::nullopt;
    if (holdsVolumeBin(item.name))
        return DisposalError::holdsBin;
    return holdsMount(item) ? std::optional(DisposalError::holdsMountPoint) : std::nullopt;
}

/// Looks up the holders, which are computed for the first item that can be one.
std::optional<DisposalError> BinGuard::whatItHolds(const FileIdentity& item) {
    for (const auto& [path, refusal] : std::exchange(m_held, {}))
        learnHolders(path, refusal);
    const auto holder = m_holders.find(item);
    return holder == m_holders.end() ? std::nullopt : std::optional(holder->second);
}

bool BinGuard::holdsMount(const HeldItem& item) {
    if (m_mounts.isUnknown())
        return treeHoldsMount(item.folder(), item.name.c_str());
    const auto parent = currentPath(item.folder());
    return parent && m_mounts.mountBelow(*parent / item.name);
}

bool BinGuard::isInsideBin(const HeldFolder& folder) {
    lookAt(folder);
    return m_lastRefusal == DisposalError::isInsideBin;
}

/// Caches the folder's properties, since a batch's items are usually in one folder.
void BinGuard::lookAt(const HeldFolder& folder) {
    if (m_lastFolder == folder.status.identity && m_lastMount == folder.status.mountId)
        return;
    m_lastFolder = folder.status.identity;
    m_lastMount = folder.status.mountId;
    m_lastPath.reset();
    m_sameVolume.clear();
    const auto mount = m_mounts.mount(folder.status.mountId);
    const auto path = mount ? currentPath(folder.descriptor.get()) : Result<Path>(Error());
    if (mount && path) {
        const Path below = path->lexically_relative(mount->point);
        m_lastPath = below == "." ? Path(mount->root) : mount->root / below;
        m_sameVolume = m_mounts.mountsOfSame(*mount);
    }
    m_lastIsSystem = volumeKind(folder.descriptor.get()).isPseudo ||
                     (mount && (mount->type == "devtmpfs" || mount->point.native() == "/dev"));
    m_lastRefusal = findRefusalInside(folder);
}

/// Recognises a Bin at the top of a volume through any mount of that volume.
bool BinGuard::isVolumeBin(const HeldFolder& parent, const std::string& name) const {
    const auto isTop = [this](const MountTable::Mount& mount) {
        return m_lastPath && mount.root == *m_lastPath;
    };
    return isVolumeBinName(name) &&
           (parent.status.isMountPoint || std::ranges::any_of(m_sameVolume, isTop));
}

bool BinGuard::holdsVolumeBin(const std::string& name) const {
    return m_lastPath && std::ranges::any_of(m_sameVolume, [&](const MountTable::Mount& mount) {
               return isWithin(mount.root, *m_lastPath / name) &&
                      (fileStatus(mount.point / (".Trash-" + m_user)).ok() ||
                       fileStatus(mount.point / ".Trash" / m_user).ok());
           });
}

std::optional<DisposalError> BinGuard::findRefusalInside(const HeldFolder& folder) {
    for (const auto& mount : m_sameVolume) {
        const Path below = m_lastPath->lexically_relative(mount.root);
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
