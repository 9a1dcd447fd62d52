#pragma once

#include "cli/CommandLine.h"

namespace vexmoor {

// One function a command; each prints its result and answers the exit status.

/// Feed, put-back and delete.
int runBatch(const Invocation& invocation);
int runComplete(const Invocation& invocation);
int runHistory(const Invocation& invocation);
int runStats(const Invocation& invocation);
int runSettings(const Invocation& invocation);
int runIntegrate(const Invocation& invocation);
int runDoctor(const Invocation& invocation);

/// Starts the desktop application in place of this process; returns only where that fails.
int runDesktop(const Invocation& invocation);

} // namespace vexmoor
