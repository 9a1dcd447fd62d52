#pragma once

#include "intake/BatchReport.h"

namespace vexmoor {

/// Prints what became of a batch after `what` was done ("Put back"), failures to stderr, and
/// answers the exit status.
int reportBatch(const BatchReport& report, const char* what, bool asJson);

/// Prints the JSON document of a command that was refused or declined.
void printRefusal(const std::string& sentence);

} // namespace vexmoor
