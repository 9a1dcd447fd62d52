#pragma once

#include "disposal/Disposer.h"
#include "disposal/Journal.h"
#include "intake/VolumeCheck.h"

namespace vexmoor {

/// Determines from the disk which intents of an interrupted batch were carried out. Not
/// thread-safe.
class IntentCheck {
  public:
    explicit IntentCheck(Disposer& disposer) : m_disposer(disposer) {}

    /// True if the outcome cannot be determined now, because the item's volume is missing or does
    /// not answer.
    [[nodiscard]] bool mustWait(const JournalBatch& batch, const JournalEntry& entry);

    /// True if the intent was carried out. A power cut can undo an operation whose outcome was
    /// recorded.
    [[nodiscard]] bool happened(const JournalBatch& batch, const JournalEntry& entry);

  private:
    Disposer& m_disposer;
    VolumeCheck m_volumes;
};

} // namespace vexmoor
