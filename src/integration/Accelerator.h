#pragma once

#include <chrono>
#include <optional>

namespace vexmoor {

using ProcessTime = std::chrono::system_clock::time_point;

enum class AcceleratorStatus {
    unsupported, ///< this file manager, or this version of it, has no accelerator for our entry
    notInstalled,
    installed,
    otherKey, ///< the user gave our entry another key, or took the key away; it is kept
    taken,    ///< the user bound Ctrl+Backspace to something else there; it is left
};

/// Since when the accelerator stands in the file manager's configuration: decides for each of its
/// processes. Plain data, for any thread.
struct AcceleratorValidity {
    std::optional<ProcessTime> since; ///< nullopt if it is not installed
    bool needsRestart = true;         ///< false: running processes notice the change

    /// Whether a process of the file manager that started then has our accelerator.
    [[nodiscard]] bool isEffectiveFor(ProcessTime processStart) const {
        return since && (!needsRestart || processStart > *since);
    }
};

} // namespace vexmoor
