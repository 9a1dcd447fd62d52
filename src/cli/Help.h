#pragma once

#include "cli/CommandTable.h"

#include <string>

namespace vexmoor {

/// Returns the help of a command, or of the program, in the user's language. Wraps it at the width
/// of the terminal on stdout, at most 100 columns; at 80 if stdout is no terminal.
std::string helpText(const CommandDescription& command);

/// Like helpText(), for a given width.
std::string helpText(const CommandDescription& command, std::size_t width);

/// Returns the usage after "vexmoor": "feed [OPTION]... PATH...".
std::string usageWords(const CommandDescription& command);

/// Returns the message for a usage error: the sentence, and how to get help.
std::string usageComplaint(const CommandDescription& command, const std::string& sentence);

} // namespace vexmoor
