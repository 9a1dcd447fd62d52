#pragma once

#include "base/Path.h"
#include "base/Result.h"

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

/// Ctrl+Backspace on our menu entry, in the configuration file of one file manager. Changes nothing
/// but our own line; a file that cannot be read as such a file is left alone. Blocks on file
/// access; one thread at a time.
class Accelerator {
  public:
    virtual ~Accelerator() = default;

    /// Empty if unsupported.
    [[nodiscard]] virtual Path file() const = 0;

    /// Fails if the file cannot be read or is not such a file.
    [[nodiscard]] virtual Result<AcceleratorStatus> status() const = 0;

    /// Does nothing unless the status is `notInstalled`.
    virtual Result<void> install() = 0;

    /// Takes our key away, and nothing else: a key that the user gave our entry stays.
    virtual Result<void> remove() = 0;

    /// Whether only a new process of the file manager notices a change.
    [[nodiscard]] virtual bool needsRestart() const { return true; }
};

} // namespace vexmoor
