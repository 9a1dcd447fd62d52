#pragma once

#include "intake/BatchReport.h"

namespace vexmoor {

/// Prints what became of a batch after `what` was done ("Put back"), failures to stderr, and
/// answers the exit status.
int reportBatch(const BatchReport& report, const char* what, bool asJson);

} // namespace vexmoor
