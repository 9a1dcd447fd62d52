#include "BatchJournal.h"

#include "base/Text.h"
#include "disposal/DisposalError.h"

namespace vexmoor {

Result<void> BatchJournal::intend(const JournalEntry& entry) {
    if (!m_writer) {
        auto begun = m_journal.begin(m_kind, m_mode, m_start);
        if (!begun)
            return std::move(begun).error();
        m_writer = *std::move(begun);
    }
    m_writer->intend(entry);
    return {};
}

Result<void> BatchJournal::sync() {
    return m_writer ? m_writer->sync() : Result<void>();
}

Result<void> BatchJournal::intendNow(const JournalEntry& entry) {
    if (auto intended = intend(entry); !intended)
        return intended;
    return sync();
}

void BatchJournal::begin(const Uuid& id) {
    m_writer->note(begunLine(id));
    (void)m_writer->flush(); // only recovery after a crash needs it
}

void BatchJournal::conclude(const Uuid& id, const std::optional<Error>& failure) {
    const InEnglish forMachines;
    if (m_writer)
        m_writer->note(failure ? failedLine(id, describe(*failure)) : doneLine(id));
}

std::optional<JournalMark> BatchJournal::end() {
    if (!m_writer)
        return std::nullopt;
    // Outcomes only save recovery some work if this process dies before the commit.
    (void)m_writer->flush();
    return JournalMark{m_writer->number(), m_writer->end()};
}

} // namespace vexmoor
