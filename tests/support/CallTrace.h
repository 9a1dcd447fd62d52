#pragma once

#include <sys/types.h>

namespace vexmoor::test {

/// Call in a child before exec: stops it and waits for its parent.
void letParentTrace();

/// Continues such a child, sends it the signal when its main thread returns from its `count`-th
/// system call with that number, before it does anything else, and detaches. Returns false if it
/// made fewer such calls or tracing is not allowed.
bool signalAfterCall(pid_t process, long call, int count, int signal);

} // namespace vexmoor::test
