#include "HeldItem.h"

namespace vexmoor {

Result<std::shared_ptr<const HeldFolder>> FolderKeeper::open(const Path& folder) {
    if (m_last && m_last->path == folder)
        return m_last;
    auto descriptor = openFolder(folder);
    if (!descriptor)
        return std::move(descriptor).error();
    auto status = fileStatus(descriptor->get(), "");
    if (!status)
        return std::move(status).error();
    m_last =
        std::make_shared<const HeldFolder>(HeldFolder{folder, *std::move(descriptor), *status});
    return m_last;
}

Result<HeldItem> FolderKeeper::hold(const Path& path) {
    auto parent = open(path.parent_path());
    if (!parent)
        return std::move(parent).error();
    std::string name = lastComponent(path);
    const auto status = fileStatus((*parent)->descriptor.get(), name.c_str());
    if (!status)
        return status.error();
    return HeldItem{path, *std::move(parent), std::move(name), *status};
}

} // namespace vexmoor
