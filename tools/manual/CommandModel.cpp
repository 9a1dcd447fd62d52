#include "CommandModel.h"

#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>

namespace vexmoor {

namespace {

/// Splits "{bin,dissolve}" into words.
std::vector<std::string> choicesOf(CLI::Option& option) {
    const auto type = option.get_type_name();
    const auto begin = type.find('{');
    const auto end = type.find('}');
    if (begin == std::string::npos || end == std::string::npos)
        return {};
    return CLI::detail::split(type.substr(begin + 1, end - begin - 1), ',');
}

ParameterModel parameterModel(CLI::Option& option) {
    ParameterModel model;
    for (const auto& name : option.get_lnames())
        model.names.push_back("--" + name);
    for (const auto& name : option.get_snames())
        model.names.push_back("-" + name);
    const auto type = option.get_type_name();
    if (option.get_positional())
        model.names = {type.substr(0, type.find(':'))};
    else if (option.get_items_expected_max() > 0)
        model.value = type.substr(0, type.find(':'));
    model.description = option.get_description();
    model.choices = choicesOf(option);
    model.isRequired = option.get_required();
    model.isRepeated = option.get_expected_max() > 1;
    return model;
}

CommandModel modelOf(CLI::App& app) {
    CommandModel model{app.get_name(), app.get_description(), {}, {}, {}};
    for (auto* const option : app.get_options())
        (option->get_positional() ? model.arguments : model.options)
            .push_back(parameterModel(*option));
    for (auto* const command : app.get_subcommands({}))
        model.commands.push_back(modelOf(*command));
    return model;
}

} // namespace

CommandModel commandModel() {
    Invocation invocation;
    return modelOf(*describeCommands(invocation));
}

std::vector<std::string> optionsWithValue(const CommandModel& program) {
    std::vector<std::string> result;
    for (const auto& command : program.commands)
        for (const auto& option : command.options)
            if (!option.value.empty())
                for (const auto& name : option.names)
                    result.push_back(command.name + " " + name);
    return result;
}

std::string joined(const std::vector<std::string>& words, const std::string& between) {
    std::string result;
    for (const auto& word : words)
        result.append(result.empty() ? "" : between).append(word);
    return result;
}

} // namespace vexmoor
