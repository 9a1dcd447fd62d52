#pragma once

#include "base/Path.h"
#include "platform/UserDirectories.h"

#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// One way in which the desktop calls this program: a file of its own, or an action in a file that
/// is shared with the user's.
struct Integration {
    enum class Kind { ownFile, ownProgramFile, thunarAction };

    std::string id;
    std::string title; ///< "Nautilus script"
    Path file;
    std::string content; ///< of the file or, of an action, its element
    Kind kind = Kind::ownFile;
    bool isAvailable = true; ///< false: what it starts is not here, so it can only be removed
};

/// All that there are, in the order of showing. `program` and `desktopProgram` are absolute paths
/// in UTF-8 without control characters; without a desktop program there is nothing that could start
/// with the session.
std::vector<Integration> integrations(const UserDirectories& directories, const Path& program,
                                      const std::optional<Path>& desktopProgram);

/// Stands in every file that is ours, and so tells them from others.
inline constexpr const char* kIntegrationMark = "Written by \"vexmoor integrate\"";

} // namespace vexmoor
