#pragma once

#include "disposal/Sacrifice.h"
#include "intake/VolumeCheck.h"

namespace vexmoor {

/// Looks for items in their Bins, and waits for no volume that does not answer. Serves one
/// operation. One thread.
class BinLook {
  public:
    explicit BinLook(std::shared_ptr<VolumeLooks> volumes) : m_volumes(std::move(volumes)) {}

    /// Whether the item is there, or may be, as its volume has not answered yet.
    [[nodiscard]] bool isInBin(const Sacrifice& item);

    /// Whether it is no longer there. On a volume that is not there it may still be in the Bin.
    [[nodiscard]] bool isGone(const Sacrifice& item);

  private:
    VolumeCheck m_volumes;
};

} // namespace vexmoor
