#pragma once

#include <chrono>
#include <optional>

namespace vexmoor {

using ProcessTime = std::chrono::system_clock::time_point;

enum class AcceleratorStatus {
    unsupported, ///< this file manager or version does not support an accelerator for our entry
    notInstalled,
    installed,
    otherKey, ///< the user chose or removed another key for our entry; it is kept
    taken,    ///< the user bound Ctrl+Backspace to another action; it is kept
};

/// When the accelerator was installed in the file manager's configuration. Used to decide for each
/// of its processes. Thread-safe.
struct AcceleratorValidity {
    std::optional<ProcessTime> since; ///< nullopt if it is not installed
    bool needsRestart = true;         ///< false if running processes notice the change

    /// True if a file manager process started at that time has our accelerator.
    [[nodiscard]] bool isEffectiveFor(ProcessTime processStart) const {
        return since && (!needsRestart || processStart > *since);
    }
};

} // namespace vexmoor
