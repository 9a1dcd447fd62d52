#include "CreatedPaths.h"

#include "integration/AcceleratorText.h"
#include "integration/WholeFile.h"
#include "platform/FileManager.h"

#include <unistd.h>

#include <vector>

namespace vexmoor {

namespace {

constexpr mode_t kFolderMode = 0755;
constexpr mode_t kPrivateFolderMode = 0700;
constexpr mode_t kFileMode = 0600;

} // namespace

CreatedPaths::CreatedPaths(const UserDirectories& directories)
    : m_file(directories.ownData() / "integration-created") {
    const auto text = readWholeFile(m_file);
    if (!text)
        return;
    for (auto line : linesOf(*text)) {
        if (line.ends_with('\n'))
            line.remove_suffix(1);
        if (const auto path = pathFromFileUri(line))
            m_paths.insert(path->native());
    }
}

Result<void> CreatedPaths::makeFolders(const Path& folder) {
    std::vector<Path> missing;
    std::error_code code;
    for (Path at = folder; !at.empty() && !std::filesystem::exists(at, code) && !code;
         at = at.parent_path())
        missing.push_back(at);
    auto made = vexmoor::makeFolders(folder, kFolderMode);
    if (!made || missing.empty())
        return made;
    for (const auto& path : missing)
        if (!m_file.native().starts_with(path.native() +
                                         "/")) // the record itself is in that folder
            m_paths.insert(path.native());
    save();
    return made;
}

void CreatedPaths::add(const Path& file) {
    if (m_paths.insert(file.native()).second)
        save();
}

void CreatedPaths::forget(const Path& file) {
    if (m_paths.erase(file.native()) > 0)
        save();
}

bool CreatedPaths::contains(const Path& file) const {
    return m_paths.contains(file.native());
}

void CreatedPaths::removeEmptyFolders() {
    bool isChanged = false;
    for (auto path = m_paths.rbegin(); path != m_paths.rend();) { // inner folders first
        const bool isGone = ::rmdir(path->c_str()) == 0 || ::access(path->c_str(), F_OK) != 0;
        isChanged |= isGone;
        path = isGone ? decltype(path)(m_paths.erase(std::next(path).base())) : std::next(path);
    }
    if (isChanged)
        save();
}

void CreatedPaths::save() const {
    if (m_paths.empty()) {
        ::unlink(m_file.c_str());
        ::rmdir(m_file.parent_path().c_str()); // fails if the folder is not empty
        return;
    }
    std::string text;
    for (const auto& path : m_paths)
        text += fileUri(path) + "\n";
    if (vexmoor::makeFolders(m_file.parent_path(), kPrivateFolderMode))
        (void)replaceWholeFile(m_file, text, kFileMode);
}

} // namespace vexmoor
