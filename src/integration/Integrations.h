#pragma once

#include "base/Path.h"
#include "integration/FileManagers.h"
#include "platform/UserDirectories.h"

#include <optional>
#include <string>

namespace vexmoor {

/// What the integration is done with: where the user's files lie and which programs there are.
struct IntegrationContext {
    UserDirectories directories;
    Path program;                       ///< the command line, as menus call it; absolute
    std::optional<Path> desktopProgram; ///< nullopt: there is none to start with the session
    std::string searchPath;             ///< PATH, where file managers are looked for
    std::string configDirs;             ///< XDG_CONFIG_DIRS

    /// Of the running process, which may be either program. Reads the environment: main thread.
    static IntegrationContext ofProcess();

    /// Whether the programs' paths can be written into files of all the forms that there are: they
    /// are absolute, UTF-8, and have no control characters. Nothing is installed without that.
    [[nodiscard]] bool canBeWritten() const;
};

/// One way in which the desktop calls this program: a file of its own, or an action in a file that
/// is shared with the user's.
struct Integration {
    enum class Kind { ownFile, ownProgramFile, thunarAction };

    Path file;
    std::string content; ///< of the file or, of an action, its element
    Kind kind = Kind::ownFile;
    bool isAvailable = true; ///< false: what it starts is not here, so it can only be removed
};

/// The entry of the file manager's menu; nullopt for MenuEntryKind::none.
std::optional<Integration> menuEntry(MenuEntryKind kind, const IntegrationContext& context);

/// Nemo's entry as a script, which can carry a key in all of its versions.
Integration nemoScript(const IntegrationContext& context);

/// Starts the desktop program with the session.
Integration autostart(const IntegrationContext& context);

/// Stands in every file that this program writes and marks it as such.
inline constexpr const char* kIntegrationMark = "Written by \"vexmoor integrate\"";

/// The entry's title, which is the name of a script too.
inline constexpr const char* kMenuTitle = "Feed to Vexmoor";

/// The name of the file of Nemo's action.
inline constexpr const char* kNemoActionFile = "vexmoor-feed.nemo_action";

} // namespace vexmoor
