#pragma once

#include "base/Result.h"
#include "integration/CreatedPaths.h"
#include "integration/Integrations.h"

namespace vexmoor {

enum class IntegrationStatus {
    notInstalled,
    installed,
    differs, ///< ours, but of another version or for another program
    notOurs, ///< another file lies there
};

/// An integration on the disk. Files that are not ours, and what others wrote into a shared file,
/// stay as they are; files are replaced whole or not at all.
class IntegrationFile {
  public:
    /// `configDirs`: XDG_CONFIG_DIRS, where the files are that the user's own hide.
    IntegrationFile(Integration integration, std::string configDirs)
        : m_integration(std::move(integration)), m_configDirs(std::move(configDirs)) {}

    [[nodiscard]] const Path& file() const { return m_integration.file; }

    /// Fails where the file cannot be read or, a shared one, cannot be understood.
    [[nodiscard]] Result<IntegrationStatus> status() const;

    /// Fails with `file_exists` where the file is not ours.
    Result<void> install(CreatedPaths& created) const;

    /// Does nothing if it is not installed; fails with `file_exists` where the file is not
    /// ours.
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
