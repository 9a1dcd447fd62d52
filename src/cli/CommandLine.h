#pragma once

#include "intake/Ports.h"
#include "platform/FileManager.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexmoor {

/// A parsed command line.
struct Invocation {
    enum class Command {
        open,
        feed,
        putBack,
        erase,
        history,
        stats,
        settings,
        integrate,
        doctor,
        probe,
        help,
        complete, ///< prints the items that a shell completion offers
    };

    Command command = Command::open;
    bool json = false;
    bool quiet = false; ///< print failures only
    bool yes = false;
    bool fromMenu = false;          ///< called from a menu: there is no terminal to ask on
    bool force = false;             ///< ignore paths that do not exist
    bool asksEach = false;          ///< ask before each item
    bool recursive = false;         ///< no effect: folders are always fed whole
    bool verbose = false;           ///< list each item, even if there are many
    std::vector<std::string> items; ///< paths, ids or names
    std::vector<FileIdentity> seen; ///< the file at each path when the user confirmed
    std::vector<Failure> missing;   ///< names that matched nothing when the user confirmed
    std::string mode;               ///< empty: use the setting
    std::size_t last = 0;           ///< number of items; 0 if not given
    std::size_t number = 0;         ///< maximum length of the history; 0 if not given
    bool all = false;
    std::string name;
    std::string value;
    std::string action; ///< of integrate; empty means status
    bool help = false;
    bool version = false;
    bool probe = false;
};

// Ids of the integrate command that name no file manager: the autostart entry, and a former id of
// Dolphin.
inline constexpr const char* kAutostartId = "autostart";
inline constexpr const char* kFormerDolphinId = "kio";

/// Either an invocation, or text to print and an exit status (help, version, usage errors).
struct ParsedCommandLine {
    std::optional<Invocation> invocation;
    std::string output;
    std::string error;
    int status = 0;
};

/// Parses the command line by the table in CommandTable.h. Options may be mixed with names; every
/// word after "--" is a name.
ParsedCommandLine parseCommandLine(int argc, const char* const* argv);

} // namespace vexmoor
