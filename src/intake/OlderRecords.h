#pragma once

#include "base/UserDefaults.h"
#include "disposal/Disposer.h"
#include "disposal/OlderJournals.h"
#include "intake/BinnedItems.h"

namespace vexmoor {

/// Enters what earlier versions knew of binned items (in the ledger's recent records and the closed
/// journals of the newest batches) into the table of the database, once, and removes the journals.
/// Without success all stays as it is, for the next start.
Result<void> adoptOlderRecords(OlderJournals& journals, UserDefaults& defaults,
                               const Ledger& ledger, BinnedItems& binnedItems);

/// Of a batch that an earlier version counted, the items in the Bin whose way back no table has
/// yet; without those that are `open`, whose outcome is yet to be seen.
std::vector<Sacrifice> binnedWithoutRecord(const JournalBatch& batch, const JournalBatch& open,
                                           const BinnedItems& binnedItems, Disposer& disposer);

/// Of a batch that an earlier version counted, the entries that had to wait for their volumes, as
/// far as the ledger knows. In the home Bin nothing had to: those items were counted, also where a
/// power cut took the notes of it.
JournalBatch withoutKnown(JournalBatch batch, const Ledger& ledger,
                          const UserDirectories& directories);

bool areOlderRecordsAdopted(const OlderJournals& journals, const UserDefaults& defaults);

} // namespace vexmoor
