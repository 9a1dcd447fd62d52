#pragma once

#include "cli/CommandLine.h"

namespace vexmoor {

/// Has the running desktop application carry out a command that changes something, and prints its
/// result; answers the exit status.
int handOver(const Invocation& invocation);

} // namespace vexmoor
