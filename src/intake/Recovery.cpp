#include "Recovery.h"

#include "disposal/Disposer.h"
#include "intake/InfoRepair.h"
#include "intake/IntentCheck.h"
#include "intake/OlderRecords.h"
#include "intake/Settlement.h"

#include <algorithm>

namespace vexmoor {

namespace {

using Outcome = JournalEntry::Outcome;

/// Key of the batches with items on missing volumes, stored as lines of a journal.
constexpr const char* kWaitingKey = "journal.waiting";

/// True if a power cut has emptied info files in the home Bin. Skips other volumes, which may be
/// missing or hang.
bool areInfosEmpty(const BinnedItems& binnedItems, const UserDirectories& directories) {
    constexpr int kMostLooks = 16;
    int looks = 0;
    bool isEmpty = false;
    binnedItems.visit([&](const Sacrifice& item) {
        const auto lacks = isInHomeBin(item, directories) ? lacksInfo(item) : std::nullopt;
        isEmpty = lacks.value_or(false);
        return !lacks && ++looks < kMostLooks;
    });
    return isEmpty;
}

bool needsRecovery(const Journal& journal, const OlderJournals& older, const UserDefaults& defaults,
                   const BinnedItems& binnedItems, const UserDirectories& directories) {
    return journal.holdsMoreThan(Settlement::position(defaults)) || defaults.data(kWaitingKey) ||
           !older.open().empty() || areInfosEmpty(binnedItems, directories);
}

/// Processes the unrecorded batches and collects the changes to store.
class Recoverer {
  public:
    Recoverer(Journal& journal, OlderJournals older, UserDefaults& defaults, Ledger& ledger,
              Progression& progression, BinnedItems binnedItems, const UserDirectories& directories)
        : m_journal(journal), m_older(std::move(older)), m_defaults(defaults), m_ledger(ledger),
          m_progression(progression), m_binnedItems(binnedItems), m_directories(directories),
          m_disposer(directories, nullptr), m_intents(m_disposer) {}

    RecoveryReport run() {
        m_mark = {m_defaults.integer(Settlement::kRecordedKey).value_or(0),
                  Settlement::position(m_defaults)};
        if (auto adopted = adoptOlderRecords(m_older, m_defaults, m_ledger, m_binnedItems);
            !adopted)
            m_report.problems.push_back(std::move(adopted).error());
        takeWaiting();
        takeOlder();
        takeJournal();
        if (!m_hasNews)
            return std::move(m_report);
        if (const auto stored = m_defaults.transaction([this] { store(); }); !stored) {
            m_report.problems.push_back(stored.error());
            return std::move(m_report); // everything is kept for the next start
        }
        for (const auto number : m_olderTaken)
            if (const auto removed = m_older.removeOpen(number); !removed)
                m_report.problems.push_back(removed.error());
        return std::move(m_report);
    }

    /// Repairs the info files of recorded items in the home Bin.
    void repairInfos() {
        InfoRepair infos(m_disposer);
        m_binnedItems.visit([&](const Sacrifice& item) {
            return !isInHomeBin(item, m_directories) || infos.repair(item);
        });
    }

  private:
    /// The outcome of one batch.
    struct Recorded {
        JournalBatch batch; ///< without entries
        std::vector<Sacrifice> sacrifices;
        std::vector<Progression::Offering> offerings;
        std::set<Uuid> ids;
    };

    void takeWaiting() {
        const auto text = m_defaults.data(kWaitingKey);
        if (!text)
            return;
        std::vector<JournalBatch> batches;
        if (const auto read = readLines(text->bytes, batches); !read)
            m_report.problems.push_back(read.error());
        for (const auto& batch : batches)
            take(batch, true);
        m_hasNews = m_hasNews || m_waiting != text->bytes;
    }

    void takeOlder() {
        for (const auto number : m_older.open()) {
            const auto batch = m_older.read(number);
            if (!batch) {
                m_report.problems.push_back(setAsideOlder(number, batch.error()));
                continue;
            }
            const bool isNew = number > m_mark.number;
            const auto open = isNew ? *batch : withoutKnown(*batch, m_ledger, m_directories);
            if (!isNew)
                m_counted.emplace_back(
                    number, binnedWithoutRecord(*batch, open, m_binnedItems, m_disposer));
            take(open, !isNew);
            m_mark.number = std::max(m_mark.number, number);
            m_olderTaken.push_back(number);
            m_hasNews = true;
        }
    }

    /// Returns the error to report for an unreadable journal. Renames the journal only if it cannot
    /// be parsed.
    Error setAsideOlder(std::int64_t number, const Error& error) {
        if (error.code != std::errc::bad_message && error.code != std::errc::is_a_directory)
            return error;
        m_mark.number = std::max(m_mark.number, number); // must not be assigned again
        m_hasNews = true;
        const auto aside = m_older.setAside(number);
        return aside ? disposalError(DisposalError::journalSetAside, *aside) : aside.error();
    }

    void takeJournal() {
        if (!m_journal.holdsMoreThan(m_mark.end))
            return;
        const auto unrecorded = m_journal.unrecorded(m_mark.end);
        if (!unrecorded) {
            m_report.problems.push_back(unrecorded.error());
            if (unrecorded.error().code == std::errc::bad_message)
                setAsideJournal();
            return;
        }
        for (const auto& batch : unrecorded->batches)
            if (batch.number > m_mark.number) {
                take(batch, false);
                m_mark.number = batch.number;
            }
        m_hasNews = true;
        m_mark.end = unrecorded->end;
        if (unrecorded->isLost)
            m_report.problems.push_back(
                disposalError(DisposalError::journalLost, m_journal.folder()));
        if (unrecorded->isLost || unrecorded->isDamaged)
            setAsideJournal();
    }

    void setAsideJournal() {
        m_mark.end = {};
        m_hasNews = true;
        const auto aside = m_journal.setAside();
        if (aside)
            m_report.problems.push_back(disposalError(DisposalError::journalSetAside, *aside));
        else if (aside.error().code != std::errc::no_such_file_or_directory)
            m_report.problems.push_back(aside.error());
    }

    /// Decides the entries whose outcome can be determined; keeps the others for a later start.
    void take(const JournalBatch& batch, bool hasWaited) {
        Recorded recorded;
        recorded.batch = batch;
        recorded.batch.entries.clear();
        JournalBatch waiting = recorded.batch;
        for (const auto& entry : batch.entries) {
            if (entry.outcome != Outcome::failed && m_intents.mustWait(batch, entry))
                waiting.entries.push_back(entry);
            else
                decide(batch, entry, recorded);
        }
        if (!waiting.entries.empty())
            keepWaiting(waiting, hasWaited);
        if (!recorded.ids.empty())
            m_recorded.push_back(std::move(recorded));
    }

    void keepWaiting(const JournalBatch& batch, bool hasWaited) {
        m_waiting += headerLine(batch.number, batch.kind, batch.mode);
        for (const auto& entry : batch.entries) {
            m_waiting += intentLine(entry);
            if (entry.isBegun)
                m_waiting += begunLine(entry.sacrifice.id);
        }
        const auto& first = batch.entries.front().sacrifice;
        if (!hasWaited)
            m_report.problems.push_back(
                first.trashed ? disposalError(DisposalError::volumeNotThere, *first.trashed)
                              : disposalError(DisposalError::volumeAway, *first.original));
    }

    void decide(const JournalBatch& batch, const JournalEntry& entry, Recorded& recorded) {
        const auto& sacrifice = entry.sacrifice;
        if (entry.outcome == Outcome::unknown)
            returnLeaving(entry);
        const bool didHappen = m_intents.happened(batch, entry);
        if (entry.outcome == Outcome::unknown)
            removeLeftInfo(batch, entry);
        if (!didHappen) {
            reportFailure(batch, entry);
            return;
        }
        // A power cut may have emptied the info file. If the repair fails, the record still allows
        // putting back.
        if (sacrifice.canRestore() && batch.kind == JournalKind::feed)
            (void)m_disposer.repairInfo(*sacrifice.trashed, sacrifice.binRecord());
        recorded.ids.insert(sacrifice.id);
        recorded.sacrifices.push_back(sacrifice);
        recorded.offerings.push_back(
            {sacrifice.original.value_or(sacrifice.name), sacrifice.bytes, entry.isFolder});
        if (batch.mode == DisposeMode::dissolve)
            recorded.sacrifices.back().original.reset();
    }

    /// An item in the leaving folder is at neither of its paths, so move it back first.
    void returnLeaving(const JournalEntry& entry) {
        if (!entry.sacrifice.trashed)
            return;
        if (const auto returned = m_disposer.returnLeaving(*entry.sacrifice.trashed); !returned)
            m_report.problems.push_back(returned.error());
    }

    void reportFailure(const JournalBatch& batch, const JournalEntry& entry) {
        const auto& sacrifice = entry.sacrifice;
        if (entry.outcome == Outcome::failed)
            m_report.failures.push_back(
                {sacrifice.name, disposalError(DisposalError::failedBefore, {}, entry.failure),
                 sacrifice.original});
        else if (entry.isBegun && batch.mode == DisposeMode::dissolve)
            m_report.failures.push_back({sacrifice.name,
                                         disposalError(DisposalError::cutOff, *sacrifice.original),
                                         sacrifice.original});
    }

    /// An interrupted move may have left an info file without its item.
    void removeLeftInfo(const JournalBatch& batch, const JournalEntry& entry) {
        const auto& sacrifice = entry.sacrifice;
        if (batch.mode == DisposeMode::bin && sacrifice.trashed && sacrifice.original)
            m_disposer.removeLeftInfo(*sacrifice.trashed, *sacrifice.original);
    }

    /// Stores all changes in one transaction.
    void store() {
        for (const auto& recorded : m_recorded) {
            const auto count = static_cast<std::int64_t>(recorded.ids.size());
            switch (recorded.batch.kind) {
            case JournalKind::feed:
                storeFed(recorded);
                m_report.disposed += count;
                break;
            case JournalKind::putBack:
                m_ledger.mark(recorded.ids, {}, {});
                m_binnedItems.remove(recorded.ids);
                m_report.putBack += count;
                break;
            case JournalKind::erase:
                m_ledger.mark({}, {}, recorded.ids);
                m_binnedItems.remove(recorded.ids);
                m_report.deleted += count;
                break;
            }
        }
        for (const auto& [number, items] : m_counted)
            m_binnedItems.add(number, items);
        if (m_waiting.empty())
            m_defaults.assign(kWaitingKey, std::nullopt);
        else
            m_defaults.assign(kWaitingKey, UserDefaults::Data{m_waiting});
        Settlement::assign(m_defaults, m_mark);
    }

    void storeFed(const Recorded& recorded) {
        const auto newest =
            std::ranges::max_element(recorded.sacrifices, {}, &Sacrifice::date)->date;
        m_ledger.record(recorded.sacrifices);
        m_binnedItems.add(recorded.batch.number, recorded.sacrifices);
        const auto unlocked = m_progression.record(recorded.offerings, recorded.batch.mode, newest);
        m_report.unlocked.insert(m_report.unlocked.end(), unlocked.begin(), unlocked.end());
    }

    Journal& m_journal;
    OlderJournals m_older;
    UserDefaults& m_defaults;
    Ledger& m_ledger;
    Progression& m_progression;
    BinnedItems m_binnedItems;
    UserDirectories m_directories;
    Disposer m_disposer;
    IntentCheck m_intents;
    JournalMark m_mark;
    bool m_hasNews = false;
    std::vector<Recorded> m_recorded;
    std::vector<std::pair<std::int64_t, std::vector<Sacrifice>>> m_counted; ///< by earlier versions
    std::string m_waiting;
    std::vector<std::int64_t> m_olderTaken;
    RecoveryReport m_report;
};

} // namespace

bool needsRecovery(const Journal& journal, const UserDefaults& defaults,
                   const BinnedItems& binnedItems, const UserDirectories& directories) {
    return needsRecovery(journal, OlderJournals(journal.folder()), defaults, binnedItems,
                         directories);
}

RecoveryReport recover(Journal& journal, UserDefaults& defaults, Ledger& ledger,
                       Progression& progression, BinnedItems binnedItems,
                       const UserDirectories& directories) {
    const OlderJournals older(journal.folder());
    if (areOlderRecordsAdopted(older, defaults) &&
        !needsRecovery(journal, older, defaults, binnedItems, directories))
        return {}; // the usual case; the checks below would slow down small batches
    Recoverer recoverer(journal, older, defaults, ledger, progression, binnedItems, directories);
    auto report = recoverer.run();
    if (areInfosEmpty(binnedItems, directories)) // check again: recovery may have changed the Bin
        recoverer.repairInfos();
    return report;
}

} // namespace vexmoor
