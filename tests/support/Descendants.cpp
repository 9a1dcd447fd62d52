#include "Descendants.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>

namespace vexmoor::test {
namespace {

/// Returns the parent of a process, or -1 if the process has ended.
pid_t parentOf(const std::filesystem::path& process) {
    std::string text;
    std::getline(std::ifstream(process / "stat"), text, '\0');
    const auto name = text.rfind(')'); // the name can contain any character; "S 123" follows
    return name == std::string::npos ? -1 : std::stoi(text.substr(name + 4));
}

void killChildren() {
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        if (std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; }) &&
            parentOf(entry.path()) == getpid())
            kill(std::stoi(name), SIGKILL);
    }
}

} // namespace

Descendants::Descendants() {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
}

Descendants::~Descendants() {
    do // processes whose parent ends become children
        killChildren();
    while (waitpid(-1, nullptr, 0) > 0);
    prctl(PR_SET_CHILD_SUBREAPER, 0);
}

} // namespace vexmoor::test
