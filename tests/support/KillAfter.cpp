// A preloaded library (LD_PRELOAD) that kills the program when it returns from one of its system
// calls: KILL_AFTER="renameat2 17" means the 17th renameat2. Cheap enough to kill long batches at
// any call. With KILL_CUTS=<folder> it also simulates a power cut of the folder's file system,
// which loses all data that is not on its disk.

#include <dirent.h>
#include <dlfcn.h>
#include <sys/ioctl.h>
#include <sys/types.h>

#include <atomic>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

struct Moment {
    char call[32] = "";
    std::atomic<int> left = -1;

    Moment() {
        int count = 0;
        const char* const text = std::getenv("KILL_AFTER");
        if (text != nullptr && std::sscanf(text, "%31s %d", call, &count) == 2)
            left = count;
    }
};

/// Shuts the file system down without flushing its log (EXT4_IOC_SHUTDOWN, XFS_IOC_GOINGDOWN).
void cutPower(const char* folder) {
    constexpr unsigned long kShutdown = _IOR('X', 125, std::uint32_t);
    std::uint32_t flags = 2;
    DIR* const directory = ::opendir(folder);
    if (directory == nullptr || ::ioctl(::dirfd(directory), kShutdown, &flags) != 0)
        std::abort();
}

/// Returns the call's result, unless the program is to be killed here.
template <typename Result>
Result survive(const char* call, Result result) {
    static Moment moment;
    if (std::strcmp(call, moment.call) == 0 && --moment.left == 0) {
        if (const char* const folder = std::getenv("KILL_CUTS"))
            cutPower(folder);
        std::raise(SIGKILL);
    }
    return result;
}

template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

#define KILL_AFTER(result, name, parameters, arguments)                                            \
    __attribute__((visibility("default"))) result name parameters;                                 \
    result name parameters {                                                                       \
        static auto* const real = next<result parameters>(#name);                                  \
        return survive(#name, real arguments);                                                     \
    }

KILL_AFTER(int, openat, (int d, const char* p, int f, mode_t m), (d, p, f, m))
KILL_AFTER(ssize_t, write, (int f, const void* b, size_t n), (f, b, n))
KILL_AFTER(ssize_t, pwrite64, (int f, const void* b, size_t n, long o), (f, b, n, o))
KILL_AFTER(ssize_t, pwrite, (int f, const void* b, size_t n, long o), (f, b, n, o))
KILL_AFTER(int, renameat2, (int a, const char* b, int c, const char* d, unsigned e),
           (a, b, c, d, e))
KILL_AFTER(int, rename, (const char* a, const char* b), (a, b))
KILL_AFTER(int, unlinkat, (int a, const char* b, int c), (a, b, c))
KILL_AFTER(int, unlink, (const char* a), (a))
KILL_AFTER(int, fdatasync, (int a), (a))
KILL_AFTER(int, close, (int a), (a))

} // extern "C"
