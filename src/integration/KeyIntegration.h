#pragma once

#include "integration/ManagerIntegration.h"

#include <vector>

namespace vexmoor {

/// Ctrl+Backspace in all file managers that are installed, for the desktop program. Every call
/// looks at the files and at the running processes again, may ask a file manager for its version,
/// and so takes up to seconds: for a worker thread. Uses no globals; one thread at a time.
class KeyIntegration {
  public:
    explicit KeyIntegration(IntegrationContext context) : m_context(std::move(context)) {}

    [[nodiscard]] std::vector<KeyState> status() const;

    /// Installs the key where it is supported and free, and the menu entry that it calls if that is
    /// missing.
    [[nodiscard]] std::vector<KeyState> install() const;

    /// Takes the key away. Menu entries stay.
    [[nodiscard]] std::vector<KeyState> remove() const;

    /// Whether the menu of an installed file manager has our entry.
    [[nodiscard]] bool hasMenuEntry() const;

  private:
    IntegrationContext m_context;
};

} // namespace vexmoor
