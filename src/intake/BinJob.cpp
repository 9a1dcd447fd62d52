#include "BinJob.h"

#include "disposal/DisposalError.h"

namespace vexmoor {

BinJob::BinJob(JournalKind kind, const UserDirectories& directories, Journal& journal,
               WorkMeter& meter, std::int64_t lastRecorded)
    : m_kind(kind), m_journal(journal), m_meter(meter), m_lastRecorded(lastRecorded),
      m_disposer(directories, &meter) {}

BinJob::Output BinJob::run(const std::vector<Sacrifice>& items, std::set<Uuid>& takenOut) {
    for (const auto& item : items) {
        if (!item.trashed || !item.original)
            continue;
        if (m_meter.stop)
            m_output.result.untouched.push_back(*item.trashed);
        else if (takenOut.contains(item.id))
            m_output.result.failures.push_back(
                {item.name, disposalError(DisposalError::goneFromBin, *item.trashed)});
        else
            handle(item);
    }
    takenOut.insert(m_output.done.begin(), m_output.done.end());
    if (m_writer) {
        m_output.journalNumber = m_writer->number();
        // The last outcome only saves a look at the disk, should this process die before the
        // commit.
        (void)m_writer->flush();
    }
    return std::move(m_output);
}

void BinJob::handle(const Sacrifice& item) {
    auto landing = act(item);
    if (m_writer)
        m_writer->conclude(item.id, landing.ok());
    if (landing) {
        m_output.result.done.push_back(item);
        if (m_kind == JournalKind::putBack)
            m_output.result.landings.push_back(*std::move(landing));
        m_output.done.insert(item.id);
        return;
    }
    if (landing.error().code == DisposalError::goneFromBin)
        m_output.lost.insert(item.id);
    m_output.result.failures.push_back({item.name, std::move(landing).error()});
}

/// Where the item is afterwards; of a deleted one, where it was.
Result<Path> BinJob::act(const Sacrifice& item) {
    const Path place = *item.trashed;
    const BinRecord record = item.binRecord();
    const auto willLeave = [&](const FileStatus& status, const Path& landing) {
        JournalEntry entry;
        entry.sacrifice = item;
        entry.inode = status.identity.inode;
        if (!landing.empty())
            entry.destination = landing;
        return intend(entry);
    };
    if (m_kind == JournalKind::putBack)
        return m_disposer.restore(place, record, willLeave);
    if (auto erased = m_disposer.erase(place, record, willLeave); !erased)
        return std::move(erased).error();
    return place;
}

Result<void> BinJob::intend(const JournalEntry& entry) {
    if (!m_writer) {
        auto begun = m_journal.begin(m_kind, DisposeMode::bin, m_lastRecorded);
        if (!begun)
            return std::move(begun).error();
        m_writer = *std::move(begun);
    }
    return m_writer->intend(entry);
}

} // namespace vexmoor
