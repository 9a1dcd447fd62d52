#include "Manual.h"

#include "cli/SettingDescription.h"

namespace vexmoor {

namespace {

/// Escapes the separators of an _arguments specification inside quotes.
std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':' || c == '\\')
            result += '\\';
        result.append(c == '\'' ? "'\\''" : std::string(1, c));
    }
    return result;
}

std::string words(Choices choices) {
    return choices == nullptr ? " " : "(" + joined(choices(), " ") + ")";
}

std::string action(const Argument& argument) {
    switch (argument.kind) {
    case Argument::Kind::choice:
        return words(argument.choices);
    case Argument::Kind::file:
        return "_files";
    case Argument::Kind::binnedItem:
        return "_vexmoor_items";
    case Argument::Kind::settingValue:
        return "->value";
    }
    return " ";
}

std::string optionSpecifications(std::span<const Option> options, const std::string& indent) {
    std::string text;
    for (const auto& option : options)
        for (const auto& name : option.names()) {
            text.append(indent).append("'(").append(joined(option.names(), " ")).append(")");
            text += name;
            if (option.takesValue() && name.starts_with("--"))
                text += "=";
            text += "[" + escaped(option.description) + "]";
            if (option.takesValue())
                text += ":" + std::string(option.value) + ":" + words(option.choices);
            text += "' \\\n";
        }
    return text;
}

std::string commandBranch(const CommandDescription& command) {
    const std::string indent = "            ";
    std::string text = "        " + std::string(command.name) + ")\n" + indent +
                       "_arguments -s -S -C \\\n" +
                       optionSpecifications(command.options, indent + "    ");
    for (std::size_t i = 0; i < command.arguments.size(); ++i) {
        const auto& argument = command.arguments[i];
        text += indent + "    '" + (argument.isRepeated() ? "*" : std::to_string(i + 1)) + ":" +
                std::string(argument.name) + ":" + action(argument) + "' \\\n";
    }
    return text + indent + "    && return\n" + indent + ";;\n";
}

std::string commandList() {
    std::string text;
    for (const auto& command : commandDescriptions())
        text +=
            "            '" + std::string(command.name) + ":" + escaped(command.summary) + "'\n";
    return text;
}

std::string commandBranches() {
    std::string text;
    for (const auto& command : commandDescriptions())
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

std::string zshCompletion() {
    return std::string("#compdef vexmoor\n# ") + kGeneratedNote + R"(

# Offers the items that can be put back, newest first, with what they are; zsh quotes them.
_vexmoor_items() {
    local -a lines names shown
    lines=("${(@f)$(command vexmoor complete -- "${(Q)PREFIX}" 2>/dev/null)}")
    (( $#lines[1] )) || return 1
    names=("${(@)lines%%$'\t'*}")
    shown=("${(@)lines/$'\t'/  -- }")
    compadd -V items -l -d shown -a names
}

_vexmoor() {
    local curcontext=$curcontext state line
    typeset -A opt_args
    _arguments -s -S -C \
)" + optionSpecifications(programDescription().options, "        ") +
           R"(        '1:command:->command' \
        '*:: :->arguments' && return
    case $state in
    command)
        local -a commands=(
)" + commandList() +
           R"(        )
        _describe -t commands command commands && return
        ;;
    arguments)
        case $line[1] in
)" + commandBranches() +
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
