#pragma once

#include "cli/CommandLine.h"
#include "cli/Outcome.h"

#include <optional>

namespace vexmoor {

/// Told where a question has nobody to answer it.
Refusal noTerminal();

/// Has the running desktop application carry out a command that changes something; what needs a yes
/// is asked first. Nothing where it has ended meanwhile: then the command is carried out here, and
/// the invocation holds what was answered, so that nothing is asked twice.
std::optional<Outcome> handOver(Invocation& invocation);

/// The same for a command of a file manager's menu: the desktop application is started where it
/// can be, and asks and tells itself.
std::optional<Outcome> handOverFromMenu(const Invocation& invocation);

} // namespace vexmoor
