#pragma once

#include "base/UserDefaults.h"
#include "disposal/Disposer.h"
#include "disposal/OlderJournals.h"
#include "intake/BinnedItems.h"

namespace vexmoor {

/// Adds the binned items of earlier versions (from the ledger's recent records and the closed
/// journals) to the database's table, once, and removes the journals. On failure everything stays
/// for the next start.
Result<void> adoptOlderRecords(OlderJournals& journals, UserDefaults& defaults,
                               const Ledger& ledger, BinnedItems& binnedItems);

/// Returns the items in the Bin that the table lacks, of a batch that an earlier version has
/// counted. Omits those in `open`, whose outcome is unknown.
std::vector<Sacrifice> binnedWithoutRecord(const JournalBatch& batch, const JournalBatch& open,
                                           const BinnedItems& binnedItems, Disposer& disposer);

/// Returns the entries of such a batch that were waiting for their volumes, according to the
/// ledger. Items in the home Bin never waited: they were counted, even if a power cut has removed
/// their outcomes from the journal.
JournalBatch withoutKnown(JournalBatch batch, const Ledger& ledger,
                          const UserDirectories& directories);

bool areOlderRecordsAdopted(const OlderJournals& journals, const UserDefaults& defaults);

} // namespace vexmoor
