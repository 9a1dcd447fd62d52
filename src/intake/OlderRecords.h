#pragma once

#include "base/UserDefaults.h"
#include "disposal/OlderJournals.h"
#include "intake/BinnedItems.h"

namespace vexmoor {

/// Enters what earlier versions knew of binned items (in the ledger's recent records and the closed
/// journals of the newest batches) into the table of the database, once, and removes the journals.
/// Without success all stays as it is, for the next start.
Result<void> adoptOlderRecords(OlderJournals& journals, UserDefaults& defaults,
                               const Ledger& ledger, BinnedItems& binnedItems);

bool areOlderRecordsAdopted(const OlderJournals& journals, const UserDefaults& defaults);

} // namespace vexmoor
