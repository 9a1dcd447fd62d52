#pragma once

#include "disposal/Sacrifice.h"
#include "intake/Ports.h"

#include <vector>

// What the intake says to the user.

namespace vexmoor {

/// Failures that are listed one by one in a report; the rest are counted.
inline constexpr std::size_t kListedFailures = 8;

Question dissolveQuestion(std::size_t count);
Question deleteQuestion(const std::vector<Sacrifice>& items);

FailureReport intakeFailures(std::vector<Failure> failures);
FailureReport putBackFailures(std::vector<Failure> failures);
FailureReport deleteFailures(std::vector<Failure> failures);

/// The items went where they should, but the stores could not be written.
FailureReport storeFailure(const Error& error);

/// The name by which the Edit menu offers to undo a batch.
std::string sacrificeActionName(std::size_t count);

} // namespace vexmoor
