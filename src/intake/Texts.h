#pragma once

#include "disposal/Sacrifice.h"
#include "intake/Ports.h"

#include <vector>

// The intake's messages to the user.

namespace vexmoor {

/// The maximum number of failures or items listed; further ones are counted.
inline constexpr std::size_t kListedFailures = 8;

/// Returns the display names of the first items, up to the maximum listed.
std::vector<std::string> firstNames(const std::vector<StoredPath>& items);

/// `names` are those of the first items; at most kListedFailures are listed.
Question dissolveQuestion(std::size_t count, const std::vector<std::string>& names = {});
Question deleteQuestion(const std::vector<Sacrifice>& items);

FailureReport intakeFailures(std::vector<Failure> failures);
FailureReport putBackFailures(std::vector<Failure> failures);
FailureReport deleteFailures(std::vector<Failure> failures);

/// For a batch that was stopped: `count` items stay untouched.
FailureReport stoppedReport(std::size_t count);

/// For items that are not on this computer, alone or among accepted ones.
FailureReport foreignReport(bool tookOthers);

/// For a drop whose file list the desktop did not provide.
FailureReport withheldReport();

/// For a lost connection to the compositor, with the system's reason.
FailureReport tileLostReport(const std::string& reason);

/// For commands that were not begun and whose callers no longer wait.
FailureReport droppedCommands(std::size_t count);

/// For failures beyond the maximum shown; `lines` describe the first of them.
FailureReport furtherReports(std::size_t count, const std::vector<std::string>& lines);

/// For an unreadable database that was set aside and replaced by an empty one.
FailureReport damagedStore(const Path& aside);

/// For a batch that was carried out but could not be stored.
FailureReport storeFailure(const Error& error);
FailureReport journalFailure(const Error& error);

/// Returns the name of the batch's undo action in the Edit menu.
std::string sacrificeActionName(std::size_t count);

} // namespace vexmoor
