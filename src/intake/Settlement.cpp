#include "Settlement.h"

#include <utility>

namespace vexmoor {

std::optional<Error> Settlement::commit(std::optional<std::int64_t> journalNumber, JournalKind kind,
                                        DisposeMode mode, const std::function<void()>& changes) {
    const auto committed = m_defaults.transaction([&] {
        changes();
        if (journalNumber)
            m_defaults.assign(kRecordedKey, *journalNumber);
    });
    if (journalNumber)
        m_unsettled.push_back({*journalNumber, kind, mode});
    if (!committed)
        return committed.error();
    std::optional<Error> failure;
    for (const auto& unsettled : std::exchange(m_unsettled, {}))
        if (const auto closed = m_journal.close(unsettled.journal, unsettled.kind, unsettled.mode);
            !closed)
            failure = closed.error();
    return failure;
}

void Settlement::storeLeftOver() {
    if (!m_unsettled.empty())
        (void)commit(std::nullopt, JournalKind::feed, DisposeMode::bin, [] {});
}

std::int64_t Settlement::lastRecorded() const {
    return m_defaults.integer(kRecordedKey).value_or(0);
}

} // namespace vexmoor
