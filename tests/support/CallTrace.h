#pragma once

#include <sys/types.h>

namespace vexmoor::test {

/// In a child, before it becomes another program: it stops then and waits for its parent.
void letParentTrace();

/// Lets such a child run, sends it the signal when its main thread comes back from its `count`-th
/// system call of that number, before it does anything else, and leaves it to itself. False where
/// it made fewer such calls, or tracing is not allowed here.
bool signalAfterCall(pid_t process, long call, int count, int signal);

} // namespace vexmoor::test
