#pragma once

#include "integration/Accelerator.h"
#include "integration/AcceleratorFile.h"
#include "integration/FileManagers.h"
#include "integration/IntegrationFile.h"

#include <optional>
#include <vector>

namespace vexmoor {

/// The key of one file manager as it is now.
struct KeyState {
    const FileManager* manager = nullptr; ///< never null
    AcceleratorStatus status = AcceleratorStatus::unsupported;
    Path file; ///< where the key is bound; empty if unsupported
    /// Whether a running process of the file manager does not have the key yet: it works after the
    /// next start.
    bool waitsForRestart = false;
    AcceleratorValidity validity; ///< for the decision about one process
    std::optional<Error> error;   ///< why it could not be installed, removed or read
};

/// Whether a process of the file manager is running that does not have the installed key yet.
[[nodiscard]] bool needsRestart(const KeyState& state);

/// What one file manager has of us: the entry in its menu, and Ctrl+Backspace on that entry. Both
/// are looked up again at every call, which may take seconds if the file manager is to report its
/// version. One thread at a time.
class ManagerIntegration {
  public:
    /// Both must outlive it.
    ManagerIntegration(const FileManager& manager, const IntegrationContext& context);

    [[nodiscard]] const FileManager& manager() const { return m_manager; }

    /// Whether the file manager's program is on the search path.
    [[nodiscard]] bool isInstalled() const { return m_program.has_value(); }

    /// The entry of the menu; nullopt if there is no form of it for this file manager.
    [[nodiscard]] std::optional<IntegrationFile> menu() const;
    Result<void> installMenu(CreatedPaths& created) const;
    Result<void> removeMenu(CreatedPaths& created) const;

    [[nodiscard]] KeyState key() const;

    /// Installs the key if it is supported and free, and the entry that it calls.
    Result<void> installKey(CreatedPaths& created) const;

    /// Takes the key away. The menu keeps its entry.
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
