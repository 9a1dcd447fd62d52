#include "Programs.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace vexmoor {

namespace {

constexpr const char* kDesktopName = "vexmoor-desktop";

bool canRun(const Path& file) {
    std::error_code code;
    return std::filesystem::is_regular_file(file, code) && ::access(file.c_str(), X_OK) == 0;
}

std::string_view searchPath() {
    const char* const variable = std::getenv("PATH");
    return variable != nullptr ? variable : "";
}

/// Returns the program's path on the search path if that is the same file, otherwise `program`.
Path asOnSearchPath(const Path& program) {
    std::error_code code;
    const auto found = programOnSearchPath(program.filename().native(), searchPath());
    return found && std::filesystem::equivalent(*found, program, code) ? *found : program;
}

Path ownFile() {
    std::error_code code;
    return std::filesystem::read_symlink("/proc/self/exe", code);
}

} // namespace

std::optional<Path> programOnSearchPath(std::string_view name, std::string_view path) {
    while (!path.empty()) {
        const auto end = std::min(path.find(':'), path.size());
        const Path folder(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
        if (folder.is_absolute() && canRun(folder / name))
            return folder / name;
    }
    return std::nullopt;
}

Path ownProgram() {
    return asOnSearchPath(ownFile());
}

Path commandLineProgram() {
    const Path own = ownFile();
    const Path beside = own.parent_path() / "vexmoor";
    return own.filename() == kDesktopName && canRun(beside) ? asOnSearchPath(beside) : ownProgram();
}

std::optional<Path> desktopProgram() {
    const Path beside = ownFile().parent_path() / kDesktopName;
    return canRun(beside) ? asOnSearchPath(beside)
                          : programOnSearchPath(kDesktopName, searchPath());
}

} // namespace vexmoor
