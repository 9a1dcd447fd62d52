#include "Commands.h"

#include "base/ErrorCode.h"
#include "base/Path.h"
#include "base/Text.h"
#include "cli/ExitStatus.h"
#include "cli/Terminal.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace vexmoor {

namespace {

constexpr const char* kProgram = "vexmoor-desktop";

/// Returns the desktop application in this program's own folder, regardless of the search path.
Path programBeside() {
    std::error_code code;
    const Path self = std::filesystem::read_symlink("/proc/self/exe", code);
    return code ? Path(kProgram) : self.parent_path() / kProgram;
}

} // namespace

int runDesktop(const Invocation& invocation) {
    const char* const option =
        invocation.command == Invocation::Command::probe ? "--probe" : nullptr;
    ::execl(programBeside().c_str(), kProgram, option, nullptr);
    ::execlp(kProgram, kProgram, option, nullptr);
    complain(text("The desktop application can't be started: %1.",
                  {messageOf(std::error_code(errno, std::generic_category()))}));
    return kRefused;
}

} // namespace vexmoor
