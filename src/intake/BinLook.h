#pragma once

#include "disposal/Sacrifice.h"
#include "intake/VolumeCheck.h"

namespace vexmoor {

/// Checks whether items are in their Bins, without waiting for volumes that do not answer. Use one
/// instance per operation. Not thread-safe.
class BinLook {
  public:
    explicit BinLook(std::shared_ptr<VolumeLooks> volumes) : m_volumes(std::move(volumes)) {}

    /// True if the item is in the Bin, or may be because its volume has not answered yet.
    [[nodiscard]] bool isInBin(const Sacrifice& item);

    /// True if the item is no longer in the Bin; false if its volume is missing.
    [[nodiscard]] bool isGone(const Sacrifice& item);

  private:
    VolumeCheck m_volumes;
};

} // namespace vexmoor
