#pragma once

#include "base/Path.h"
#include "integration/FileManagers.h"
#include "platform/UserDirectories.h"

#include <optional>
#include <string>

namespace vexmoor {

/// The environment of the integrations: the user's folders and the installed programs.
struct IntegrationContext {
    UserDirectories directories;
    Path program; ///< absolute path of the command line program, which menus call
    std::optional<Path>
        desktopProgram;     ///< nullopt if there is no desktop program to start with the session
    std::string searchPath; ///< PATH, searched for file managers
    std::string configDirs; ///< XDG_CONFIG_DIRS

    /// Returns the context of the current process, of either program. Reads the environment: main
    /// thread only.
    static IntegrationContext ofProcess();

    /// True if the programs' paths are safe in every file format: absolute, UTF-8 and free of
    /// control characters. Otherwise nothing is installed.
    [[nodiscard]] bool canBeWritten() const;
};

/// One way for the desktop to start this program: a file of its own, or an action in a file shared
/// with the user.
struct Integration {
    enum class Kind { ownFile, ownProgramFile, thunarAction };

    Path file;
    std::string content; ///< the file's text, or the action's element
    Kind kind = Kind::ownFile;
    bool isAvailable =
        true; ///< false if the program to start is missing; then it can only be removed
};

/// Returns the menu entry in that format; nullopt for MenuEntryKind::none.
std::optional<Integration> menuEntry(MenuEntryKind kind, const IntegrationContext& context);

/// Returns Nemo's entry as a script, which supports an accelerator in all versions.
Integration nemoScript(const IntegrationContext& context);

/// Returns the entry that starts the desktop program with the session.
Integration autostart(const IntegrationContext& context);

/// Marks each file that this program writes.
inline constexpr const char* kIntegrationMark = "Written by \"vexmoor integrate\"";

/// The entry's title and the file name of scripts.
inline constexpr const char* kMenuTitle = "Feed to Vexmoor";

/// The file name of Nemo's action.
inline constexpr const char* kNemoActionFile = "vexmoor-feed.nemo_action";

} // namespace vexmoor
