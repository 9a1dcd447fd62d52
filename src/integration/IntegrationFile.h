#pragma once

#include "base/Result.h"
#include "integration/CreatedPaths.h"
#include "integration/Integrations.h"

namespace vexmoor {

enum class IntegrationStatus {
    notInstalled,
    installed,
    differs, ///< ours, but from another version or for another program
    notOurs, ///< another program's file has the name
};

/// An integration on the disk. Keeps files that are not ours and foreign content of shared files.
/// Files are replaced atomically.
class IntegrationFile {
  public:
    /// `configDirs`: XDG_CONFIG_DIRS, the folders of system-wide files that the user's file hides.
    IntegrationFile(Integration integration, std::string configDirs)
        : m_integration(std::move(integration)), m_configDirs(std::move(configDirs)) {}

    [[nodiscard]] const Path& file() const { return m_integration.file; }

    /// Fails if the file cannot be read, or if a shared file cannot be parsed.
    [[nodiscard]] Result<IntegrationStatus> status() const;

    /// Fails with `file_exists` if the file is not ours.
    Result<void> install(CreatedPaths& created) const;

    /// Does nothing if it is not installed. Fails with `file_exists` if the file is not ours.
    Result<void> remove(CreatedPaths& created) const;

  private:
    [[nodiscard]] Result<IntegrationStatus> sharedStatus() const;
    [[nodiscard]] Result<std::string> sharedText() const;
    [[nodiscard]] Result<std::string> newSharedText() const;
    [[nodiscard]] Error notOurs() const;
    [[nodiscard]] Error notUnderstood() const;

    [[nodiscard]] Result<void> removeShared(CreatedPaths& created) const;
    [[nodiscard]] std::string textToBeginWith() const;

    Integration m_integration;
    std::string m_configDirs;
};

} // namespace vexmoor
