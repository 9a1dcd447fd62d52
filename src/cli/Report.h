#pragma once

#include "cli/Outcome.h"

namespace vexmoor {

/// What a batch did with its items.
enum class Deed { binned, dissolved, putBack, deleted };

/// Prints what became of a batch, failures to stderr, and answers the exit status.
int reportBatch(const BatchReport& report, Deed deed, bool asJson);

/// Prints the JSON document of a command that feeds, puts back or deletes and was refused.
void printRefusal(const Refusal& refusal);

} // namespace vexmoor
