#include "Settlement.h"

#include <cstdio>

namespace vexmoor {

std::optional<Error> Settlement::commit(const std::optional<JournalMark>& mark,
                                        const std::function<void()>& changes) {
    using Durability = UserDefaults::Durability;
    const auto committed = m_defaults.transaction(
        [&] {
            changes();
            if (mark)
                assign(m_defaults, *mark);
        },
        mark ? Durability::journaled : Durability::onDisk);
    m_hasLeftOver = !committed.ok();
    return committed ? std::nullopt : std::optional(committed.error());
}

void Settlement::storeLeftOver() {
    if (m_hasLeftOver)
        (void)commit(std::nullopt, [] {});
}

JournalStart Settlement::start() {
    JournalStart start{m_defaults.integer(kRecordedKey).value_or(0), position(m_defaults)};
    start.isDurable =
        !m_hasLeftOver && Journal::isFull(start.recorded) && m_defaults.makeDurable().ok();
    return start;
}

JournalPosition Settlement::position(const UserDefaults& defaults) {
    JournalPosition position;
    long long generation = 0;
    long long offset = 0;
    if (std::sscanf(defaults.string(kPositionKey).value_or("").c_str(), "%lld %lld", &generation,
                    &offset) == 2 &&
        generation > 0 && offset >= 0)
        position = {generation, offset};
    return position;
}

void Settlement::assign(UserDefaults& defaults, const JournalMark& mark) {
    defaults.assign(kRecordedKey, mark.number);
    defaults.assign(kPositionKey,
                    std::to_string(mark.end.generation) + " " + std::to_string(mark.end.offset));
}

} // namespace vexmoor
