#include "Faults.h"

#include <linux/stat.h>
#include <sys/types.h>

#include <atomic>
#include <cerrno>
#include <utility>

namespace vexmoor::test {

namespace {

std::atomic<int> syncCalls = 0;
std::atomic<bool> isActive = false;
std::atomic<int> callsLeft = 0;
std::atomic<int> errorNumber = 0;
std::atomic<const char*> failedCall = nullptr;
std::atomic<bool> lacksNoReplace = false;
std::atomic<std::uint64_t> claimedBlocks = 0;
std::function<void()> otherProgram;

/// Returns true and sets errno if this call is the one that fails.
bool fails(const char* call) {
    if (!isActive || callsLeft-- != 0)
        return false;
    failedCall = call;
    if (const auto act = std::exchange(otherProgram, nullptr)) {
        isActive = false; // the other program's calls do not count
        act();
        isActive = true;
        return false;
    }
    errno = errorNumber;
    return true;
}

bool isUnsupported(unsigned renameFlags) {
    if (!isActive || !lacksNoReplace || renameFlags == 0)
        return false;
    errno = EINVAL;
    return true;
}

} // namespace

Faults::Faults(int failingCall, int error, NoReplace noReplace) {
    failedCall = nullptr;
    callsLeft = failingCall;
    errorNumber = error;
    lacksNoReplace = noReplace == NoReplace::missing;
    isActive = true;
}

Faults::Faults(int call, std::function<void()> other, NoReplace noReplace)
    : Faults(call, 0, noReplace) {
    otherProgram = std::move(other);
}

Faults::~Faults() {
    isActive = false;
    otherProgram = nullptr;
}

Faults::Blocks::Blocks(std::uint64_t blocks) {
    claimedBlocks = blocks;
}

Faults::Blocks::~Blocks() {
    claimedBlocks = 0;
}

int Faults::syncs() {
    return syncCalls;
}

std::optional<std::string> Faults::failed() {
    const char* const call = failedCall;
    return call == nullptr ? std::nullopt : std::optional<std::string>(call);
}

} // namespace vexmoor::test

using vexmoor::test::fails;
using vexmoor::test::isUnsupported;

// The linker redirects each call to __wrap_<call>, which forwards it to __real_<call>.
#pragma GCC diagnostic ignored "-Wpedantic" // the linker requires reserved names
extern "C" {

#define VEXMOOR_WRAP(result, name, parameters, arguments)                                          \
    result __real_##name parameters;                                                               \
    result __wrap_##name parameters;                                                               \
    result __wrap_##name parameters {                                                              \
        return fails(#name) ? -1 : __real_##name arguments;                                        \
    }

VEXMOOR_WRAP(ssize_t, write, (int f, const void* b, size_t n), (f, b, n))
VEXMOOR_WRAP(ssize_t, pwrite64, (int f, const void* b, size_t n, long o), (f, b, n, o))
VEXMOOR_WRAP(ssize_t, pwrite, (int f, const void* b, size_t n, long o), (f, b, n, o))
int __real_renameat2(int a, const char* b, int c, const char* d, unsigned flags);
int __wrap_renameat2(int a, const char* b, int c, const char* d, unsigned flags);
int __wrap_renameat2(int a, const char* b, int c, const char* d, unsigned flags) {
    return isUnsupported(flags) || fails("renameat2") ? -1 : __real_renameat2(a, b, c, d, flags);
}
VEXMOOR_WRAP(int, linkat, (int a, const char* b, int c, const char* d, int e), (a, b, c, d, e))
VEXMOOR_WRAP(int, renameat, (int a, const char* b, int c, const char* d), (a, b, c, d))
VEXMOOR_WRAP(int, rename, (const char* a, const char* b), (a, b))
VEXMOOR_WRAP(int, unlinkat, (int a, const char* b, int c), (a, b, c))
VEXMOOR_WRAP(int, unlink, (const char* a), (a))
VEXMOOR_WRAP(int, mkdirat, (int a, const char* b, mode_t c), (a, b, c))
VEXMOOR_WRAP(int, mkdir, (const char* a, mode_t b), (a, b))
int __real_statx(int a, const char* b, int c, unsigned d, struct statx* e);
int __wrap_statx(int a, const char* b, int c, unsigned d, struct statx* e);
int __wrap_statx(int a, const char* b, int c, unsigned d, struct statx* e) {
    const int result = fails("statx") ? -1 : __real_statx(a, b, c, d, e);
    if (const auto blocks = vexmoor::test::claimedBlocks.load(); result == 0 && blocks != 0)
        e->stx_blocks = blocks;
    return result;
}
int __real_fdatasync(int f);
int __wrap_fdatasync(int f);
int __wrap_fdatasync(int f) {
    ++vexmoor::test::syncCalls;
    return fails("fdatasync") ? -1 : __real_fdatasync(f);
}

int __real_close(int f);
int __wrap_close(int f);
int __wrap_close(int f) {
    const int result = __real_close(f); // a failing close still closes the descriptor
    return fails("close") ? -1 : result;
}

VEXMOOR_WRAP(int, openat, (int d, const char* p, int f, mode_t m), (d, p, f, m))
VEXMOOR_WRAP(int, openat64, (int d, const char* p, int f, mode_t m), (d, p, f, m))
VEXMOOR_WRAP(int, open, (const char* p, int f, mode_t m), (p, f, m))
VEXMOOR_WRAP(int, open64, (const char* p, int f, mode_t m), (p, f, m))

} // extern "C"
