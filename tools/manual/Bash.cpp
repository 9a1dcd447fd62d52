#include "CommandModel.h"

#include "cli/SettingDescription.h"

namespace vexmoor {

namespace {

/// Returns the name to offer: the long one if there is one.
std::string offered(const std::vector<ParameterModel>& options) {
    std::vector<std::string> names;
    for (const auto& option : options)
        names.push_back(option.names.front());
    return joined(names, " ");
}

std::string branch(const std::string& pattern, const std::string& words) {
    return "        " + pattern + ") words='" + words + "' ;;\n";
}

std::string optionBranches(const CommandModel& program) {
    std::string text = branch("''", offered(program.options));
    for (const auto& command : program.commands)
        text += branch(command.name, offered(command.options));
    return text;
}

std::string optionValueBranches(const CommandModel& program) {
    std::string text;
    for (const auto& command : program.commands)
        for (const auto& option : command.options)
            for (const auto& name : option.names)
                if (!option.choices.empty())
                    text +=
                        branch("'" + command.name + " " + name + "'", joined(option.choices, " "));
    return text;
}

std::string settingBranches() {
    std::string text = "        'settings 1')\n            case ${names[0]} in\n";
    for (const auto& setting : settingDescriptions())
        text += "    " + branch(setting.name, joined(setting.values, " "));
    return text + "            esac ;;\n";
}

std::string argumentBranches(const CommandModel& program) {
    std::vector<std::string> names;
    for (const auto& command : program.commands)
        names.push_back(command.name);
    std::string text = branch("' 0'", joined(names, " "));
    for (const auto& command : program.commands)
        for (std::size_t i = 0; i < command.arguments.size(); ++i) {
            const auto& argument = command.arguments[i];
            if (argument.names.front() == "PATH")
                text += "        '" + command.name + " '*) return ;; # readline completes files\n";
            else if (!argument.choices.empty())
                text += branch("'" + command.name + " '" +
                                   (argument.isRepeated ? "*" : std::to_string(i)),
                               joined(argument.choices, " "));
        }
    return text + settingBranches();
}

} // namespace

std::string bashCompletion(const CommandModel& program) {
    return std::string("# bash completion for vexmoor. ") + kGeneratedNote + R"(
_vexmoor() {
    local word=${COMP_WORDS[COMP_CWORD]} command='' option='' literal='' words='' this
    local -a names=()
    COMPREPLY=()
    for this in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if [[ $literal ]]; then
            names+=("$this")
        elif [[ $this == = ]]; then
            : # separates an option from its value
        elif [[ $option ]]; then
            option=''
        elif [[ $this == -- ]]; then
            literal=1
        elif [[ $this == -* ]]; then
            case "$command $this" in
            ')" +
           joined(optionsWithValue(program), "' | '") + R"(') option=$this ;;
            esac
        elif [[ -z $command ]]; then
            command=$this
        else
            names+=("$this")
        fi
    done
    [[ $word == = ]] && word=''
    if [[ $option ]]; then
        case "$command $option" in
)" + optionValueBranches(program) +
           R"(        esac
    elif [[ -z $literal && $word == -* ]]; then
        case $command in
)" + optionBranches(program) +
           R"(        esac
    else
        case "$command ${#names[@]}" in
)" + argumentBranches(program) +
           R"(        esac
    fi
    compopt +o default 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}
complete -o default -F _vexmoor vexmoor
)";
}

} // namespace vexmoor
