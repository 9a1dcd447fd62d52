#pragma once

#include <string>
#include <vector>

namespace vexmoor {

/// An option or an argument of a command.
struct ParameterModel {
    std::vector<std::string> names; ///< "--mode", the longest first; of an argument "PATH"
    std::string description;
    std::string value; ///< what stands for the option's value, "MODE"; empty: it takes none
    std::vector<std::string> choices;
    bool isRequired = false;
    bool isRepeated = false;
};

/// A command, or the program itself, as the description of the command line has it.
struct CommandModel {
    std::string name;
    std::string description;
    std::vector<ParameterModel> options;
    std::vector<ParameterModel> arguments;
    std::vector<CommandModel> commands;
};

/// The program's, read from describeCommands().
CommandModel commandModel();

/// The options of all commands that take a value, as "<command> <option>".
std::vector<std::string> optionsWithValue(const CommandModel& program);

std::string joined(const std::vector<std::string>& words, const std::string& between);

/// A sentence that opens each file.
inline constexpr const char* kGeneratedNote =
    "Made from the program's own description of its commands.";

// One function for each kind of file; each answers the whole text.
std::string bashCompletion(const CommandModel& program);
std::string zshCompletion(const CommandModel& program);
std::string fishCompletion(const CommandModel& program);
std::string manualPage(const CommandModel& program);

} // namespace vexmoor
