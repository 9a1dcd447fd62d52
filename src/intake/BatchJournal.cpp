#include "BatchJournal.h"

namespace vexmoor {

Result<void> BatchJournal::intend(const JournalEntry& entry) {
    if (!m_writer) {
        auto begun = m_journal.begin(m_kind, m_mode, m_lastRecorded);
        if (!begun)
            return std::move(begun).error();
        m_writer = *std::move(begun);
    }
    return m_writer->intend(entry);
}

void BatchJournal::conclude(const Uuid& id, bool done) {
    if (m_writer)
        m_writer->conclude(id, done);
}

std::optional<std::int64_t> BatchJournal::end() {
    if (!m_writer)
        return std::nullopt;
    // The last outcomes only save a look at the disk, should this process die before the commit.
    (void)m_writer->flush();
    return m_writer->number();
}

} // namespace vexmoor
