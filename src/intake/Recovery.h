#pragma once

#include "disposal/Journal.h"
#include "disposal/Ledger.h"
#include "intake/BinnedItems.h"
#include "platform/UserDirectories.h"
#include "progression/Progression.h"

#include <vector>

namespace vexmoor {

/// What recover() found.
struct RecoveryReport {
    std::int64_t disposed = 0; ///< items that reached the Bin or were dissolved, now recorded
    std::int64_t putBack = 0;
    std::int64_t deleted = 0;
    std::vector<Failure> failures;     ///< items that failed, or were left half dissolved
    std::vector<Achievement> unlocked; ///< earned by what is recorded now, to be announced
    std::vector<Error> problems;       ///< of the journal and of volumes that are not there
};

/// Brings the stores up to what happened: goes through the batches of the journal that a kill or a
/// power cut left unrecorded, looks at where their items are, and records each that did move, once.
/// Info files that a power cut left empty are written again. What can't be seen now, as its volume
/// is not there, waits for a later start. Nothing of the user's is moved or deleted. Main thread,
/// under the writer's lock, before any batch.
RecoveryReport recover(Journal& journal, UserDefaults& defaults, Ledger& ledger,
                       Progression& progression, BinnedItems binnedItems,
                       const UserDirectories& directories);

/// Whether recover() may find something. Cheap.
bool needsRecovery(const Journal& journal, const UserDefaults& defaults,
                   const BinnedItems& binnedItems, const UserDirectories& directories);

} // namespace vexmoor
