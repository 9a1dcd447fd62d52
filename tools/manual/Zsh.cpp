#include "CommandModel.h"

#include "cli/SettingDescription.h"

namespace vexmoor {

namespace {

/// Escapes the separators of an _arguments specification inside quotes.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':' || c == '\\')
            result += '\\';
        result.append(c == '\'' ? "'\\''" : std::string(1, c));
    }
    return result;
}

std::string action(const ParameterModel& parameter) {
    if (parameter.names.front() == "PATH")
        return "_files";
    return parameter.choices.empty() ? " " : "(" + joined(parameter.choices, " ") + ")";
}

std::string optionSpecifications(const std::vector<ParameterModel>& options,
                                 const std::string& indent) {
    std::string text;
    for (const auto& option : options)
        for (const auto& name : option.names) {
            text += indent + "'(" + joined(option.names, " ") + ")" + name;
            if (!option.value.empty() && name.starts_with("--"))
                text += "=";
            text += "[" + escaped(option.description) + "]";
            if (!option.value.empty())
                text += ":" + option.value + ":" + action(option);
            text += "' \\\n";
        }
    return text;
}

std::string commandBranch(const CommandModel& command) {
    const std::string indent = "            ";
    std::string text = "        " + command.name + ")\n" + indent + "_arguments -S -C \\\n" +
                       optionSpecifications(command.options, indent + "    ");
    for (std::size_t i = 0; i < command.arguments.size(); ++i) {
        const auto& argument = command.arguments[i];
        const bool isValue = command.name == "settings" && argument.names.front() == "VALUE";
        text += indent + "    '" + (argument.isRepeated ? "*" : std::to_string(i + 1)) + ":" +
                argument.names.front() + ":" + (isValue ? "->value" : action(argument)) + "' \\\n";
    }
    return text + indent + "    && return\n" + indent + ";;\n";
}

std::string commandList(const CommandModel& program) {
    std::string text;
    for (const auto& command : program.commands)
        text += "            '" + command.name + ":" + escaped(command.description) + "'\n";
    return text;
}

std::string commandBranches(const CommandModel& program) {
    std::string text;
    for (const auto& command : program.commands)
        text += commandBranch(command);
    return text;
}

std::string settingBranches() {
    std::string text;
    for (const auto& setting : settingDescriptions())
        text += "        " + setting.name + ") compadd " + joined(setting.values, " ") + " ;;\n";
    return text;
}

} // namespace

std::string zshCompletion(const CommandModel& program) {
    return std::string("#compdef vexmoor\n# ") + kGeneratedNote + R"(
_vexmoor() {
    local curcontext=$curcontext state line
    typeset -A opt_args
    _arguments -S -C \
)" + optionSpecifications(program.options, "        ") +
           R"(        '1:command:->command' \
        '*:: :->arguments' && return
    case $state in
    command)
        local -a commands=(
)" + commandList(program) +
           R"(        )
        _describe -t commands command commands && return
        ;;
    arguments)
        case $line[1] in
)" + commandBranches(program) +
           R"(        esac
        ;;
    esac
    if [[ $state == value ]]; then
        case $line[1] in
)" + settingBranches() +
           R"(        esac
    fi
}
if [[ $funcstack[1] == _vexmoor ]]; then
    _vexmoor "$@"
else
    compdef _vexmoor vexmoor
fi
)";
}

} // namespace vexmoor
