#pragma once

#include "base/Path.h"

#include <chrono>
#include <map>

namespace vexmoor {

/// Tells volumes that answer from those that hang, as a network's or a program's may, so that
/// nothing waits for them. One thread.
class VolumeCheck {
  public:
    /// Whether the system says anything of the folder in time, if only that it is not there.
    /// Looked at once.
    bool answers(const Path& folder);

    /// The same of a place in a Bin; the home Bin is not asked.
    bool answersFor(const Path& place);

  private:
    static constexpr std::chrono::seconds kTimeout{2};

    std::map<Path, bool> m_known;
};

} // namespace vexmoor
