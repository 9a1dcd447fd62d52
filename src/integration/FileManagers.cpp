#include "FileManagers.h"

#include <algorithm>

namespace vexmoor {

const FileManager* fileManagerOfWindowClass(std::string_view windowClass) {
    const auto* const found = std::ranges::find_if(kFileManagers, [&](const auto& manager) {
        return std::ranges::find(manager.windowClasses, windowClass) != manager.windowClasses.end();
    });
    return found == kFileManagers.end() ? nullptr : found;
}

const FileManager* fileManagerWithId(std::string_view id) {
    const auto* const found = std::ranges::find(kFileManagers, id, &FileManager::id);
    return found == kFileManagers.end() ? nullptr : found;
}

} // namespace vexmoor
