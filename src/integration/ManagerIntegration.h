#pragma once

#include "integration/Accelerator.h"
#include "integration/AcceleratorFile.h"
#include "integration/FileManagers.h"
#include "integration/IntegrationFile.h"

#include <optional>
#include <vector>

namespace vexmoor {

/// The state of the key binding in one file manager.
struct KeyState {
    const FileManager* manager = nullptr; ///< never null
    AcceleratorStatus status = AcceleratorStatus::unsupported;
    Path file; ///< the file with the binding; empty if unsupported
    /// True if a running process of the file manager lacks the key until its next start.
    bool waitsForRestart = false;
    AcceleratorValidity validity; ///< decides for one process
    std::optional<Error> error;   ///< why it could not be installed, removed or read
};

/// True if a running process of the file manager does not have the installed key yet.
[[nodiscard]] bool needsRestart(const KeyState& state);

/// Manages our menu entry in one file manager and its Ctrl+Backspace binding. Each call reads the
/// state again, which can take seconds if the file manager has to report its version. Not
/// thread-safe.
class ManagerIntegration {
  public:
    /// Both arguments must outlive this object.
    ManagerIntegration(const FileManager& manager, const IntegrationContext& context);

    [[nodiscard]] const FileManager& manager() const { return m_manager; }

    /// True if the file manager's program is on the search path.
    [[nodiscard]] bool isInstalled() const { return m_program.has_value(); }

    /// Returns the menu entry; nullopt if this file manager has no supported format.
    [[nodiscard]] std::optional<IntegrationFile> menu() const;
    Result<void> installMenu(CreatedPaths& created) const;
    Result<void> removeMenu(CreatedPaths& created) const;

    [[nodiscard]] KeyState key() const;

    /// Installs the binding if it is supported and free, and the entry that it calls.
    Result<void> installKey(CreatedPaths& created) const;

    /// Removes the binding; keeps the menu entry.
    Result<void> removeKey(CreatedPaths& created) const;

  private:
    enum class NemoKey { script, tree };
    [[nodiscard]] Result<std::optional<AcceleratorFile>> accelerator() const;
    [[nodiscard]] Result<bool> isAtLeast(int major, int minor) const;
    [[nodiscard]] AcceleratorFile nemoAccelerator(NemoKey kind) const;
    [[nodiscard]] AcceleratorFile thunarAccelerator() const;
    [[nodiscard]] AcceleratorFile nautilusAccelerator() const;
    [[nodiscard]] AcceleratorFile dolphinAccelerator() const;
    [[nodiscard]] IntegrationFile entry(Integration integration) const;
    [[nodiscard]] IntegrationFile nemoScriptFile() const;
    [[nodiscard]] bool hasNemoScript() const;
    Result<void> installNemoScript(CreatedPaths& created) const;
    Result<void> removeNemoKeys(CreatedPaths& created) const;

    const FileManager& m_manager;
    const IntegrationContext& m_context;
    std::optional<Path> m_program;
};

} // namespace vexmoor
