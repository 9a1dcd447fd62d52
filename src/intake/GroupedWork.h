#pragma once

#include "disposal/WorkMeter.h"
#include "intake/BatchJournal.h"

#include <chrono>
#include <vector>

namespace vexmoor {

/// The control flow of a batch's file work. Processes items in groups: prepares each item and notes
/// its intent, syncs the group's intents at once, then carries them out. `Item` is the state of an
/// item between these steps. Work queue.
template <typename Item>
class GroupedWork {
  public:
    static constexpr std::size_t kMostInGroup = 512;
    static constexpr std::chrono::milliseconds kLongestLook{200};

    virtual ~GroupedWork() = default;
    GroupedWork(const GroupedWork&) = delete;
    GroupedWork& operator=(const GroupedWork&) = delete;

  protected:
    GroupedWork(BatchJournal journal, WorkMeter& meter)
        : m_journal(std::move(journal)), m_meter(meter) {}

    /// Examines the item with that number and notes its intent. Returns nullopt if nothing remains
    /// to be done with it, for example after a failure.
    virtual std::optional<Item> prepare(std::size_t number) = 0;
    virtual void carryOut(Item& item) = 0;
    /// Called if the item's intent could not be written.
    virtual void fail(const Item& item, const Error& error) = 0;
    /// Called for an item that is left because the batch was stopped.
    virtual void leave(std::size_t number) = 0;
    virtual void leave(const Item& item) = 0;

    /// Ends the group early, to limit its resources.
    void endGroup() { m_isGroupFull = true; }

    void work(std::size_t count) {
        for (std::size_t next = 0; next < count;) {
            std::vector<Item> group;
            next = gather(group, next, count);
            const auto synced = m_journal.sync();
            for (auto& item : group) {
                if (!synced)
                    fail(item, synced.error());
                else if (m_meter.stop)
                    leave(item);
                else
                    carryOut(item);
            }
        }
    }

    BatchJournal m_journal;
    WorkMeter& m_meter;

  private:
    std::size_t gather(std::vector<Item>& group, std::size_t next, std::size_t count) {
        const auto begun = std::chrono::steady_clock::now();
        m_isGroupFull = false;
        while (next < count && !m_isGroupFull && group.size() < kMostInGroup) {
            const auto number = next++;
            if (m_meter.stop)
                leave(number);
            else if (auto item = prepare(number))
                group.push_back(*std::move(item));
            if (std::chrono::steady_clock::now() - begun > kLongestLook)
                break;
        }
        return next;
    }

    bool m_isGroupFull = false;
};

} // namespace vexmoor
