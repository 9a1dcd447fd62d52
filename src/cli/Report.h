#pragma once

#include "cli/CommandLine.h"
#include "cli/Outcome.h"

namespace vexmoor {

/// What a batch does with its items.
enum class Deed { binned, dissolved, putBack, deleted };

/// Prints the result of a batch in the format of the invocation, failures on stderr with their
/// paths as typed. Returns the exit status.
int reportBatch(const BatchReport& report, Deed deed, const Invocation& invocation);

/// Prints the JSON document of a refused feed, put-back or delete.
void printRefusal(const Refusal& refusal);

} // namespace vexmoor
