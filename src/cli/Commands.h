#pragma once

#include "cli/CommandLine.h"

namespace vexmoor {

// Each function runs one command, prints its result and returns the exit status.

/// Runs feed, put-back or delete.
int runBatch(const Invocation& invocation);
int runComplete(const Invocation& invocation);
int runHistory(const Invocation& invocation);
int runStats(const Invocation& invocation);
int runSettings(const Invocation& invocation);
int runIntegrate(const Invocation& invocation);
int runDoctor(const Invocation& invocation);

/// Replaces this process with the desktop application. Returns only if that fails.
int runDesktop(const Invocation& invocation);

} // namespace vexmoor
