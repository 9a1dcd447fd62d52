#include "BinJob.h"

#include "disposal/DisposalError.h"
#include "disposal/NumberedName.h"

namespace vexmoor {

BinJob::BinJob(JournalKind kind, const UserDirectories& directories, Journal& journal,
               WorkMeter& meter, const JournalStart& start, const std::vector<Sacrifice>& items,
               std::set<Uuid>& takenOut)
    : GroupedWork(BatchJournal(journal, kind, DisposeMode::bin, start), meter), m_kind(kind),
      m_items(items), m_takenOut(takenOut), m_disposer(directories, &meter) {}

BinJob::Output BinJob::run() {
    work(m_items.size());
    m_takenOut.insert(m_output.done.begin(), m_output.done.end());
    m_output.journal = m_journal.end();
    return std::move(m_output);
}

std::optional<LeavingItem> BinJob::prepare(std::size_t number) {
    const auto& record = m_items[number];
    if (!record.trashed || !record.original)
        return std::nullopt;
    LeavingItem item{&record};
    if (m_takenOut.contains(record.id)) {
        m_output.result.failures.push_back(
            {record.name, disposalError(DisposalError::goneFromBin, *record.trashed),
             record.original});
        return std::nullopt; // no failure: an earlier batch has put it back or deleted it
    }
    if (!m_volumes.answersFor(*record.trashed)) {
        fail(item, disposalError(DisposalError::volumeNotThere, *record.trashed));
        return std::nullopt;
    }
    const auto status = fileStatus(*record.trashed);
    if (m_kind == JournalKind::putBack)
        item.entry.destination = expectedLanding(*record.original);
    if (!status || (m_kind == JournalKind::putBack && !item.entry.destination))
        return item;
    item.entry.sacrifice = record;
    item.entry.isFolder = status->isFolder();
    item.entry.inode = status->identity.inode;
    if (auto intended = m_journal.intend(item.entry); !intended) {
        fail(item, intended.error());
        return std::nullopt;
    }
    item.isNoted = true;
    return item;
}

/// Returns the first free path, which the item will probably get.
std::optional<Path> BinJob::expectedLanding(const Path& original) {
    constexpr unsigned kTries = 64;
    const std::string name = lastComponent(original);
    for (unsigned number = 1; number <= kTries; ++number) {
        Path landing = number == 1 ? original : original.parent_path() / numberedName(name, number);
        if (!fileStatus(landing) && m_expected.insert(landing).second)
            return landing;
    }
    return std::nullopt;
}

void BinJob::carryOut(LeavingItem& item) {
    auto landing = act(item);
    const auto& record = *item.record;
    m_journal.conclude(record.id, landing ? std::nullopt : std::optional(landing.error()));
    if (!landing) {
        fail(item, landing.error());
        return;
    }
    m_output.result.done.push_back(record);
    if (m_kind == JournalKind::putBack)
        m_output.result.landings.push_back(*std::move(landing));
    m_output.done.insert(record.id);
}

/// Returns the item's new path; for a deleted item, its former one.
Result<Path> BinJob::act(LeavingItem& item) {
    const auto& sacrifice = *item.record;
    const Path place = *sacrifice.trashed;
    const BinRecord record = sacrifice.binRecord();
    const auto willLeave = [&](const FileStatus& status, const Path& landing) {
        auto& entry = item.entry;
        const auto destination = landing.empty() ? std::nullopt : std::optional(landing);
        if (item.isNoted && entry.inode == status.identity.inode &&
            entry.destination == destination)
            return Result<void>();
        entry.sacrifice = sacrifice;
        entry.isFolder = status.isFolder();
        entry.inode = status.identity.inode;
        entry.destination = destination;
        item.isNoted = true;
        return m_journal.intendNow(entry);
    };
    if (m_kind == JournalKind::putBack)
        return m_disposer.restore(place, record, willLeave);
    if (auto erased = m_disposer.erase(place, record, willLeave); !erased)
        return std::move(erased).error();
    return place;
}

void BinJob::fail(const LeavingItem& item, const Error& error) {
    if (error.code == DisposalError::goneFromBin)
        m_output.lost.insert(item.record->id);
    m_output.result.failures.push_back({item.record->name, error, item.record->original});
}

void BinJob::leave(std::size_t number) {
    if (m_items[number].trashed)
        m_output.result.untouched.push_back(*m_items[number].trashed);
}

void BinJob::leave(const LeavingItem& item) {
    m_output.result.untouched.push_back(*item.record->trashed);
}

} // namespace vexmoor
