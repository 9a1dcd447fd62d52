#pragma once

#include "cli/CommandTable.h"

#include <string>

namespace vexmoor {

/// The help of a command, or of the program, in the user's language, wrapped at the width of the
/// terminal that stdout is, at most 100 columns; 80 where it is none.
std::string helpText(const CommandDescription& command);

/// The same at a given width.
std::string helpText(const CommandDescription& command, std::size_t width);

/// The words after "vexmoor": "feed [OPTION]... PATH...".
std::string usageWords(const CommandDescription& command);

/// What is printed where a command line is not understood: the sentence, and where there is help.
std::string usageComplaint(const CommandDescription& command, const std::string& sentence);

} // namespace vexmoor
