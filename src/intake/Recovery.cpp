#include "Recovery.h"

#include "disposal/Disposer.h"
#include "intake/Intake.h"

#include <algorithm>

namespace vexmoor {

namespace {

using Outcome = JournalEntry::Outcome;

bool liesAt(const Path& path, std::uint64_t inode) {
    const auto status = fileStatus(path);
    return status && status->identity.inode == inode;
}

bool isGone(const Path& path) {
    const auto status = fileStatus(path);
    return !status && status.error().code == std::errc::no_such_file_or_directory;
}

/// Whether what was intended for the item took place.
bool happened(const JournalBatch& batch, const JournalEntry& entry) {
    if (entry.outcome != Outcome::unknown)
        return entry.outcome == Outcome::done;
    const auto& sacrifice = entry.sacrifice;
    switch (batch.kind) {
    case JournalKind::feed:
        if (batch.mode == DisposeMode::dissolve)
            return sacrifice.original && isGone(*sacrifice.original);
        return sacrifice.trashed && liesAt(*sacrifice.trashed, entry.inode);
    case JournalKind::putBack:
        return entry.destination && liesAt(*entry.destination, entry.inode) &&
               isGone(*sacrifice.trashed);
    case JournalKind::erase:
        return sacrifice.trashed && isGone(*sacrifice.trashed);
    }
    return false;
}

/// Whether it cannot be seen now what became of the item.
bool mustWait(const JournalEntry& entry) {
    return entry.outcome == Outcome::unknown && entry.sacrifice.trashed &&
           TrashDirectory::isOnAbsentVolume(*entry.sacrifice.trashed);
}

class Recoverer {
  public:
    Recoverer(Journal& journal, UserDefaults& defaults, Ledger& ledger, Progression& progression,
              const UserDirectories& directories)
        : m_journal(journal), m_defaults(defaults), m_ledger(ledger), m_progression(progression),
          m_disposer(directories, nullptr) {}

    RecoveryReport run() {
        for (const auto number : m_journal.open()) {
            auto batch = m_journal.read(number);
            if (batch)
                settle(*batch);
            else
                m_report.problems.push_back(setAside(number, std::move(batch).error()));
        }
        return std::move(m_report);
    }

  private:
    /// What to tell of a journal that could not be read; only nonsense is set aside.
    Error setAside(std::int64_t number, Error error) {
        if (error.code != std::errc::bad_message && error.code != std::errc::is_a_directory)
            return error;
        const auto aside = m_journal.setAside(number);
        return aside ? disposalError(DisposalError::journalSetAside, *aside) : aside.error();
    }

    /// A batch with items on a volume that is not there stays open and is told of once.
    void settle(const JournalBatch& batch) {
        const bool isNew = batch.number > m_defaults.integer(Intake::kRecordedKey).value_or(0);
        const auto waiting = std::ranges::find_if(batch.entries, mustWait);
        const bool waits = waiting != batch.entries.end();
        if (isNew || !waits) {
            if (const auto recorded = record(batch, isNew, waits); !recorded) {
                m_report.problems.push_back(recorded.error());
                return;
            }
        }
        if (waits) {
            if (isNew)
                m_report.problems.push_back(
                    disposalError(DisposalError::volumeNotThere, *waiting->sacrifice.trashed));
            return;
        }
        if (const auto closed = m_journal.close(batch.number, batch.kind, batch.mode); !closed)
            m_report.problems.push_back(closed.error());
    }

    /// Of a batch that waits, what is known already; of one that waited, the rest.
    Result<void> record(const JournalBatch& batch, bool isNew, bool waits) {
        std::vector<Sacrifice> sacrifices;
        std::vector<Progression::Offering> offerings;
        std::set<Uuid> ids;
        for (const auto& entry : batch.entries) {
            const bool isUnknown = entry.outcome == Outcome::unknown;
            if (isUnknown ? waits || isInLedger(batch.kind, entry.sacrifice.id) : !isNew)
                continue;
            if (isUnknown)
                returnLeaving(entry);
            const bool didHappen = happened(batch, entry);
            if (isUnknown)
                removeLeftInfo(batch, entry);
            if (!didHappen)
                continue;
            ids.insert(entry.sacrifice.id);
            sacrifices.push_back(entry.sacrifice);
            offerings.push_back({entry.sacrifice.original.value_or(entry.sacrifice.name),
                                 entry.sacrifice.bytes, entry.isFolder});
            if (batch.mode == DisposeMode::dissolve)
                sacrifices.back().original.reset();
        }
        if (!isNew && ids.empty())
            return {};
        return m_defaults.transaction([&] {
            const auto count = static_cast<std::int64_t>(ids.size());
            switch (batch.kind) {
            case JournalKind::feed:
                m_ledger.record(sacrifices);
                m_progression.record(offerings, batch.mode);
                m_report.disposed += count;
                break;
            case JournalKind::putBack:
                m_ledger.mark(ids, {}, {});
                m_report.putBack += count;
                break;
            case JournalKind::erase:
                m_ledger.mark({}, {}, ids);
                m_report.deleted += count;
                break;
            }
            if (isNew)
                m_defaults.assign(Intake::kRecordedKey, batch.number);
        });
    }

    [[nodiscard]] bool isInLedger(JournalKind kind, const Uuid& id) const {
        const auto& recent = m_ledger.recent.get();
        const auto known = std::ranges::find(recent, id, &Sacrifice::id);
        return known != recent.end() && (kind == JournalKind::feed || !known->canRestore());
    }

    /// An item that was on its way out of the Bin is in none of its places.
    void returnLeaving(const JournalEntry& entry) {
        if (!entry.sacrifice.trashed)
            return;
        if (const auto returned = m_disposer.returnLeaving(*entry.sacrifice.trashed); !returned)
            m_report.problems.push_back(returned.error());
    }

    /// An item that was on its way when the batch was cut off may have left an info file alone.
    void removeLeftInfo(const JournalBatch& batch, const JournalEntry& entry) {
        const auto& sacrifice = entry.sacrifice;
        if (batch.mode == DisposeMode::bin && sacrifice.trashed && sacrifice.original)
            m_disposer.removeLeftInfo(*sacrifice.trashed, *sacrifice.original);
    }

    Journal& m_journal;
    UserDefaults& m_defaults;
    Ledger& m_ledger;
    Progression& m_progression;
    Disposer m_disposer;
    RecoveryReport m_report;
};

} // namespace

RecoveryReport recover(Journal& journal, UserDefaults& defaults, Ledger& ledger,
                       Progression& progression, const UserDirectories& directories) {
    if (journal.open().empty())
        return {};
    return Recoverer(journal, defaults, ledger, progression, directories).run();
}

} // namespace vexmoor
