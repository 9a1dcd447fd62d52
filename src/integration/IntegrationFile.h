#pragma once

#include "base/Result.h"
#include "integration/Integrations.h"

namespace vexmoor {

enum class IntegrationStatus {
    notInstalled,
    installed,
    differs, ///< ours, but of another version or for another program
    notOurs, ///< somebody else's file lies there
};

/// An integration on the disk. Files that are not ours, and what others wrote into a shared file,
/// stay as they are; files are replaced whole or not at all.
class IntegrationFile {
  public:
    explicit IntegrationFile(const Integration& integration) : m_integration(integration) {}

    /// Fails where the file cannot be read or, a shared one, cannot be understood.
    [[nodiscard]] Result<IntegrationStatus> status() const;

    /// Fails with `file_exists` where the file is not ours.
    Result<void> install() const;

    /// Nothing to do where it is not installed; fails with `file_exists` where the file is not
    /// ours.
    Result<void> remove() const;

  private:
    [[nodiscard]] Result<IntegrationStatus> sharedStatus() const;
    [[nodiscard]] Result<std::string> sharedText() const;
    [[nodiscard]] Result<std::string> newSharedText() const;
    [[nodiscard]] Error notOurs() const;
    [[nodiscard]] Error notUnderstood() const;

    const Integration& m_integration;
};

} // namespace vexmoor
