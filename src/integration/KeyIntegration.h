#pragma once

#include "integration/Accelerator.h"
#include "integration/FileManagers.h"
#include "platform/UserDirectories.h"

#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// What the integration is done with: where the user's files lie and which programs there are.
struct IntegrationContext {
    UserDirectories directories;
    Path program;                       ///< the command line, as menus call it
    std::optional<Path> desktopProgram; ///< nullopt: there is none to start with the session
    std::string searchPath;             ///< PATH, where file managers are looked for
    std::string configDirs;             ///< XDG_CONFIG_DIRS

    /// Of the running process, which may be either program. Reads the environment: main thread.
    static IntegrationContext ofProcess();
};

/// The key of one file manager, after the work that was asked for.
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

  private:
    IntegrationContext m_context;
};

} // namespace vexmoor
