#pragma once

#include "disposal/Sacrifice.h"
#include "intake/Ports.h"

#include <vector>

// What the intake says to the user.

namespace vexmoor {

/// Failures, or items, that are listed one by one; the rest are counted.
inline constexpr std::size_t kListedFailures = 8;

/// Names to show of the first items, as many as are listed.
std::vector<std::string> firstNames(const std::vector<StoredPath>& items);

/// `names` are those of the first items; kListedFailures of them are listed.
Question dissolveQuestion(std::size_t count, const std::vector<std::string>& names = {});
Question deleteQuestion(const std::vector<Sacrifice>& items);

FailureReport intakeFailures(std::vector<Failure> failures);
FailureReport putBackFailures(std::vector<Failure> failures);
FailureReport deleteFailures(std::vector<Failure> failures);

/// A batch that was stopped: what it had not begun stays as it was.
FailureReport stoppedReport(std::size_t count);

/// Something that is not on this computer was named, beside items that were taken or alone.
FailureReport foreignReport(bool tookOthers);

/// Files were dropped, but the desktop did not hand over which.
FailureReport withheldReport();

/// The compositor ended the connection that shows the tile, for a reason in the system's words.
FailureReport tileLostReport(const std::string& reason);

/// Commands were not begun, and their callers do not wait for an answer.
FailureReport droppedCommands(std::size_t count);

/// Failures that came while many others waited to be shown; `lines` are those of the first ones.
FailureReport furtherReports(std::size_t count, const std::vector<std::string>& lines);

/// The database could not be read and was set aside; a fresh one was begun.
FailureReport damagedStore(const Path& aside);

/// The items went where they should, but the stores could not be written.
FailureReport storeFailure(const Error& error);
FailureReport journalFailure(const Error& error);

/// The name by which the Edit menu offers to undo a batch.
std::string sacrificeActionName(std::size_t count);

} // namespace vexmoor
