#pragma once

#include "cli/CommandTable.h"

#include <string>
#include <vector>

namespace vexmoor {

/// Returns the options with a value of all commands, as "<command> <option>".
std::vector<std::string> optionsWithValue();

/// The sentence at the start of each generated file.
inline constexpr const char* kGeneratedNote =
    "Made from the program's own description of its commands.";

// Each function returns the complete text of one kind of file.
std::string bashCompletion();
std::string zshCompletion();
std::string fishCompletion();
std::string manualPage();

} // namespace vexmoor
