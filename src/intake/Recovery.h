#pragma once

#include "disposal/Journal.h"
#include "disposal/Ledger.h"
#include "platform/UserDirectories.h"
#include "progression/Progression.h"

#include <vector>

namespace vexmoor {

/// What recover() found.
struct RecoveryReport {
    std::int64_t disposed = 0; ///< items that reached the Bin or were dissolved, now recorded
    std::int64_t putBack = 0;
    std::int64_t deleted = 0;
    std::vector<Error> problems; ///< journals that could not be read or closed
};

/// Brings the stores up to what happened: goes through the journals whose batches a kill or a power
/// cut left unended, looks at where their items are, and records each that did move, once. Nothing
/// of the user's is moved or deleted. Main thread, under the writer's lock, before any batch.
RecoveryReport recover(Journal& journal, UserDefaults& defaults, Ledger& ledger,
                       Progression& progression, const UserDirectories& directories);

} // namespace vexmoor
