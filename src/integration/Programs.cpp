#include "Programs.h"

#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace vexmoor {

namespace {

bool canRun(const Path& file) {
    std::error_code code;
    return std::filesystem::is_regular_file(file, code) && ::access(file.c_str(), X_OK) == 0;
}

std::optional<Path> onSearchPath(const char* name) {
    const char* const variable = std::getenv("PATH");
    std::string_view rest = variable != nullptr ? variable : "";
    while (!rest.empty()) {
        const auto end = std::min(rest.find(':'), rest.size());
        const Path folder(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (folder.is_absolute() && canRun(folder / name))
            return folder / name;
    }
    return std::nullopt;
}

/// `program` by its name on the search path where that is the same file.
Path asOnSearchPath(const Path& program) {
    std::error_code code;
    const auto found = onSearchPath(program.filename().c_str());
    return found && std::filesystem::equivalent(*found, program, code) ? *found : program;
}

Path ownFile() {
    std::error_code code;
    return std::filesystem::read_symlink("/proc/self/exe", code);
}

} // namespace

Path ownProgram() {
    return asOnSearchPath(ownFile());
}

std::optional<Path> desktopProgram() {
    constexpr const char* kName = "vexmoor-desktop";
    const Path beside = ownFile().parent_path() / kName;
    return canRun(beside) ? asOnSearchPath(beside) : onSearchPath(kName);
}

} // namespace vexmoor
