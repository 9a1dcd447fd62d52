#pragma once

#include "cli/CommandLine.h"
#include "cli/Outcome.h"

namespace vexmoor {

/// What a batch did with its items.
enum class Deed { binned, dissolved, putBack, deleted };

/// Prints what became of a batch in the way that the invocation asks for, failures to stderr with
/// their paths as they were typed, and returns the exit status.
int reportBatch(const BatchReport& report, Deed deed, const Invocation& invocation);

/// Prints the JSON document of a command that feeds, puts back or deletes and was refused.
void printRefusal(const Refusal& refusal);

} // namespace vexmoor
