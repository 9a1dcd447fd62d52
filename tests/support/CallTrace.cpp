#include "CallTrace.h"

#include <sys/ptrace.h>
#include <sys/wait.h>

#include <csignal>

namespace vexmoor::test {

namespace {

constexpr int kStoppedAtCall = SIGTRAP | 0x80;

/// Continues the process until a system call begins or ends, and forwards signals. Returns false if
/// the process ended.
bool runToCall(pid_t process) {
    for (long signal = 0;;) {
        int status = 0;
        if (ptrace(PTRACE_SYSCALL, process, nullptr, signal) != 0 ||
            waitpid(process, &status, 0) != process || !WIFSTOPPED(status))
            return false;
        if (WSTOPSIG(status) == kStoppedAtCall)
            return true;
        signal = WSTOPSIG(status) == SIGTRAP ? 0 : WSTOPSIG(status);
    }
}

} // namespace

void letParentTrace() {
    ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
}

bool signalAfterCall(pid_t process, long call, int count, int signal) {
    int status = 0;
    if (waitpid(process, &status, 0) != process || !WIFSTOPPED(status) ||
        ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACESYSGOOD) != 0)
        return false;
    bool isWanted = false;
    while (count > 0) {
        __ptrace_syscall_info information{};
        if (!runToCall(process) ||
            ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof information, &information) <= 0)
            return false;
        if (information.op == PTRACE_SYSCALL_INFO_ENTRY)
            isWanted = information.entry.nr == static_cast<unsigned long>(call);
        else if (isWanted)
            --count;
    }
    return ptrace(PTRACE_DETACH, process, nullptr, signal) == 0;
}

} // namespace vexmoor::test
