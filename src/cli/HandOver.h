#pragma once

#include "cli/CommandLine.h"
#include "cli/Outcome.h"

#include <optional>

namespace vexmoor {

/// The refusal if a question cannot be asked because there is no terminal.
Refusal noTerminal();

/// Has the running desktop application carry out a command that changes something. Asks for any
/// required confirmation first. Returns nullopt if the desktop application has exited; the caller
/// then carries out the command itself. The invocation holds the answers, so that nothing is asked
/// twice.
std::optional<Outcome> handOver(Invocation& invocation);

/// Like handOver(), for a command from a file manager's menu: starts the desktop application if
/// possible, which asks and reports in its own windows.
std::optional<Outcome> handOverFromMenu(const Invocation& invocation);

} // namespace vexmoor
