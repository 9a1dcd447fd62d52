#pragma once

#include "cli/CommandTable.h"

#include <string>
#include <vector>

namespace vexmoor {

/// The options of all commands that take a value, as "<command> <option>".
std::vector<std::string> optionsWithValue();

/// A sentence that opens each file.
inline constexpr const char* kGeneratedNote =
    "Made from the program's own description of its commands.";

// One function for each kind of file; each answers the whole text.
std::string bashCompletion();
std::string zshCompletion();
std::string fishCompletion();
std::string manualPage();

} // namespace vexmoor
