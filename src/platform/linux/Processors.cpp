#include "platform/Processors.h"

#include "base/FileDescriptor.h"

#include <fcntl.h>
#include <sched.h>

#include <cstdlib>
#include <cstring>

namespace vexmoor {

namespace {

/// Returns the number of runnable threads, including this one: the number before the slash in
/// /proc/loadavg, see proc_loadavg(5). Returns 1 if it cannot be read.
int runningThreads() {
    const FileDescriptor file(::open("/proc/loadavg", O_RDONLY | O_CLOEXEC));
    char text[128] = {};
    if (!file || ::read(file.get(), text, sizeof text - 1) <= 0)
        return 1;
    const char* slash = std::strchr(text, '/');
    while (slash != nullptr && slash > text && slash[-1] != ' ')
        --slash;
    return slash == nullptr ? 1 : std::atoi(slash);
}

} // namespace

bool hasIdleProcessor() {
    cpu_set_t ours;
    if (::sched_getaffinity(0, sizeof ours, &ours) != 0)
        return false;
    const int count = CPU_COUNT(&ours);
    return count > 1 && runningThreads() < count;
}

} // namespace vexmoor
