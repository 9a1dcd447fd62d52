#include "Faults.h"

#include <sys/types.h>

#include <atomic>
#include <cerrno>

struct statx;

namespace vexmoor::test {

namespace {

std::atomic<bool> isActive = false;
std::atomic<int> callsLeft = 0;
std::atomic<int> errorNumber = 0;
std::atomic<const char*> failedCall = nullptr;

/// Whether this call is the one that fails; errno is set then.
bool fails(const char* call) {
    if (!isActive || callsLeft-- != 0)
        return false;
    failedCall = call;
    errno = errorNumber;
    return true;
}

} // namespace

Faults::Faults(int failingCall, int error) {
    failedCall = nullptr;
    callsLeft = failingCall;
    errorNumber = error;
    isActive = true;
}

Faults::~Faults() {
    isActive = false;
}

std::optional<std::string> Faults::failed() {
    const char* const call = failedCall;
    return call == nullptr ? std::nullopt : std::optional<std::string>(call);
}

} // namespace vexmoor::test

using vexmoor::test::fails;

// The linker leads each call to __wrap_<call>, which passes it on to __real_<call>.
#pragma GCC diagnostic ignored "-Wpedantic" // reserved names are the linker's way
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
VEXMOOR_WRAP(int, renameat2, (int a, const char* b, int c, const char* d, unsigned e),
             (a, b, c, d, e))
VEXMOOR_WRAP(int, renameat, (int a, const char* b, int c, const char* d), (a, b, c, d))
VEXMOOR_WRAP(int, rename, (const char* a, const char* b), (a, b))
VEXMOOR_WRAP(int, unlinkat, (int a, const char* b, int c), (a, b, c))
VEXMOOR_WRAP(int, unlink, (const char* a), (a))
VEXMOOR_WRAP(int, mkdirat, (int a, const char* b, mode_t c), (a, b, c))
VEXMOOR_WRAP(int, mkdir, (const char* a, mode_t b), (a, b))
VEXMOOR_WRAP(int, statx, (int a, const char* b, int c, unsigned d, struct statx* e),
             (a, b, c, d, e))
VEXMOOR_WRAP(int, fdatasync, (int a), (a))

int __real_close(int f);
int __wrap_close(int f);
int __wrap_close(int f) {
    const int result = __real_close(f); // a close that fails has closed all the same
    return fails("close") ? -1 : result;
}

VEXMOOR_WRAP(int, openat, (int d, const char* p, int f, mode_t m), (d, p, f, m))
VEXMOOR_WRAP(int, openat64, (int d, const char* p, int f, mode_t m), (d, p, f, m))
VEXMOOR_WRAP(int, open, (const char* p, int f, mode_t m), (p, f, m))
VEXMOOR_WRAP(int, open64, (const char* p, int f, mode_t m), (p, f, m))

} // extern "C"
