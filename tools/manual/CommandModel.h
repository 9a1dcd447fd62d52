#pragma once

#include <string>
#include <vector>

namespace vexmoor {

/// An option or an argument of a command.
struct ParameterModel {
    std::vector<std::string> names; ///< "--mode", longest first; "PATH" for an argument
    std::string description;
    std::string value; ///< name of the option's value, "MODE"; empty if it takes none
    std::vector<std::string> choices;
    bool isRequired = false;
    bool isRepeated = false;
};

/// A command or the program itself, according to the description of the command line.
struct CommandModel {
    std::string name;
    std::string description;
    std::vector<ParameterModel> options;
    std::vector<ParameterModel> arguments;
    std::vector<CommandModel> commands;
};

/// Returns the program's model, read from describeCommands().
CommandModel commandModel();

/// Returns all options that take a value, as "<command> <option>".
std::vector<std::string> optionsWithValue(const CommandModel& program);

std::string joined(const std::vector<std::string>& words, const std::string& between);

/// The first sentence of each generated file.
inline constexpr const char* kGeneratedNote =
    "Made from the program's own description of its commands.";

// Each function returns the text of one kind of file.
std::string bashCompletion(const CommandModel& program);
std::string zshCompletion(const CommandModel& program);
std::string fishCompletion(const CommandModel& program);
std::string manualPage(const CommandModel& program);

} // namespace vexmoor
