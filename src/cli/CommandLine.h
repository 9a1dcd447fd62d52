#pragma once

#include "intake/Ports.h"
#include "platform/FileManager.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexmoor {

/// What the user asked for on the command line.
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
        complete, ///< the names that a shell offers
    };

    Command command = Command::open;
    bool json = false;
    bool quiet = false; ///< failures only
    bool yes = false;
    bool fromMenu = false;          ///< nobody reads a terminal
    bool force = false;             ///< what is missing is no failure
    bool asksEach = false;          ///< before each item
    bool recursive = false;         ///< changes nothing: folders go whole
    bool verbose = false;           ///< names each item, however many there are
    std::vector<std::string> items; ///< paths, ids, names
    std::vector<FileIdentity> seen; ///< what stood at each path when it was asked
    std::vector<Failure> missing;   ///< names among them that meant nothing when it was asked
    std::string mode;               ///< empty: that of the settings
    std::size_t last = 0;           ///< 0: not given
    std::size_t number = 0;         ///< of the history, at most; 0 where it was not given
    bool all = false;
    std::string name;
    std::string value;
    std::string action; ///< of integrate; empty: status
    bool help = false;
    bool version = false;
    bool probe = false;
};

// The ids of the command integrate that are no file manager's: the start with the session, and a
// former one of Dolphin.
inline constexpr const char* kAutostartId = "autostart";
inline constexpr const char* kFormerDolphinId = "kio";

/// Either an invocation, or what to print and the status to end with (help, version, usage errors).
struct ParsedCommandLine {
    std::optional<Invocation> invocation;
    std::string output;
    std::string error;
    int status = 0;
};

/// Parses by the table of the commands (CommandTable.h). Options may stand among the names; behind
/// "--" every word is a name.
ParsedCommandLine parseCommandLine(int argc, const char* const* argv);

} // namespace vexmoor
