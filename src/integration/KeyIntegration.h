#pragma once

#include "integration/ManagerIntegration.h"

#include <vector>

namespace vexmoor {

/// Manages the Ctrl+Backspace binding in all installed file managers for the desktop program. Each
/// call reads the files and the running processes again and may run a file manager to get its
/// version, which can take seconds; call it on a worker thread. Uses no globals; not thread-safe.
class KeyIntegration {
  public:
    explicit KeyIntegration(IntegrationContext context) : m_context(std::move(context)) {}

    [[nodiscard]] std::vector<KeyState> status() const;

    /// Installs the binding where it is supported and free, and the menu entry that it calls.
    [[nodiscard]] std::vector<KeyState> install() const;

    /// Removes the bindings; keeps the menu entries.
    [[nodiscard]] std::vector<KeyState> remove() const;

    /// True if an installed file manager's menu has our entry.
    [[nodiscard]] bool hasMenuEntry() const;

  private:
    IntegrationContext m_context;
};

} // namespace vexmoor
