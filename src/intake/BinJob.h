#pragma once

#include "disposal/Disposer.h"
#include "intake/BatchJournal.h"
#include "intake/BatchResult.h"

#include <set>

namespace vexmoor {

/// The work-queue side of putting binned items back or deleting them from the Bin. One failure does
/// not stop the rest.
class BinJob {
  public:
    struct Output {
        BatchResult result;
        std::set<Uuid> done;
        std::set<Uuid> lost; ///< found gone from the Bin
        std::optional<std::int64_t> journalNumber;
    };

    BinJob(JournalKind kind, const UserDirectories& directories, Journal& journal, WorkMeter& meter,
           std::int64_t lastRecorded);

    /// `takenOut` are the items that batches before this one put back or deleted; what this one
    /// does is added.
    Output run(const std::vector<Sacrifice>& items, std::set<Uuid>& takenOut);

  private:
    void handle(const Sacrifice& item);
    Result<Path> act(const Sacrifice& item);

    JournalKind m_kind;
    WorkMeter& m_meter;
    Disposer m_disposer;
    BatchJournal m_journal;
    Output m_output;
};

} // namespace vexmoor
