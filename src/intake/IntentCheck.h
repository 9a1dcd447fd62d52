#pragma once

#include "disposal/Disposer.h"
#include "disposal/Journal.h"
#include "intake/VolumeCheck.h"

namespace vexmoor {

/// Looks at the disk to see what became of the intents of a batch that was cut off. One thread.
class IntentCheck {
  public:
    explicit IntentCheck(Disposer& disposer) : m_disposer(disposer) {}

    /// Whether it cannot be seen now what became of the item: its volume is not there, or does not
    /// answer.
    [[nodiscard]] bool mustWait(const JournalBatch& batch, const JournalEntry& entry);

    /// Whether what was intended for the item took place. What was done may be undone by a power
    /// cut, which can keep the note and lose the move.
    [[nodiscard]] bool happened(const JournalBatch& batch, const JournalEntry& entry);

  private:
    Disposer& m_disposer;
    VolumeCheck m_volumes;
};

} // namespace vexmoor
