// A developer tool: vexmoor-tree size|remove PATH, vexmoor-tree make FOLDERS FILES PATH.
#include "disposal/TreeRemoval.h"
#include "disposal/TreeSize.h"
#include "platform/FileManager.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <string>

using namespace vexmoor;

namespace {

int measure(int directory, const std::string& name) {
    std::printf("%lld\n", static_cast<long long>(treeSize(directory, name.c_str())));
    return 0;
}

int removeAll(int directory, const std::string& name) {
    const RemovalReport report = removeTree(directory, name.c_str());
    std::printf("%lld removed, %lld remain\n", static_cast<long long>(report.removed),
                static_cast<long long>(report.remaining));
    for (const Error& failure : report.failures)
        std::fprintf(stderr, "%s: %s\n", failure.path.c_str(), failure.message().c_str());
    return report.failures.empty() ? 0 : 1;
}

int inDirectoryOf(const Path& path, int (*act)(int directory, const std::string& name)) {
    const auto directory = openFolder(path.parent_path());
    if (!directory) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), directory.error().message().c_str());
        return 1;
    }
    return act(directory->get(), lastComponent(path));
}

/// Writes a few bytes into each file, so that blocks are allocated.
bool makeFiles(const std::string& folder, int files) {
    if (::mkdir(folder.c_str(), 0755) != 0)
        return false;
    for (int file = 0; file < files; ++file) {
        const std::string path = folder + "/file-" + std::to_string(file) + ".txt";
        const FileDescriptor made(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0644));
        if (!made || ::write(made.get(), path.data(), path.size()) < 0)
            return false;
    }
    return true;
}

int make(int folders, int files, const std::string& path) {
    bool isMade = folders == 1 || ::mkdir(path.c_str(), 0755) == 0;
    for (int folder = 0; folder < folders && isMade; ++folder)
        isMade = makeFiles(folders == 1 ? path : path + "/folder-" + std::to_string(folder), files);
    if (!isMade)
        std::perror(path.c_str());
    return isMade ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    const std::string command = argc > 1 ? argv[1] : "";
    if (command == "size" && argc == 3)
        return inDirectoryOf(standardized(argv[2]), measure);
    if (command == "remove" && argc == 3)
        return inDirectoryOf(standardized(argv[2]), removeAll);
    if (command == "make" && argc == 5)
        return make(std::stoi(argv[2]), std::stoi(argv[3]), argv[4]);
    std::fputs("vexmoor-tree size|remove PATH\nvexmoor-tree make FOLDERS FILES PATH\n", stderr);
    return 2;
}
