#include "Manual.h"

#include "cli/SettingDescription.h"

namespace vexmoor {

namespace {

/// Returns the name to offer: the long one if there is one.
std::string offered(std::span<const Option> options) {
    std::vector<std::string> names;
    for (const auto& option : options)
        names.push_back(option.mainName());
    return joined(names, " ");
}

std::string branch(const std::string& pattern, const std::string& words) {
    return "        " + pattern + ") words='" + words + "' ;;\n";
}

std::string optionBranches() {
    std::string text = branch("''", offered(programDescription().options));
    for (const auto& command : commandDescriptions())
        text += branch(std::string(command.name), offered(command.options));
    return text;
}

std::string optionValueBranches() {
    std::string text;
    for (const auto& command : commandDescriptions())
        for (const auto& option : command.options)
            if (option.choices != nullptr)
                for (const auto& name : option.names())
                    text += branch("'" + std::string(command.name) + " " + name + "'",
                                   joined(option.choices(), " "));
    return text;
}

std::string settingBranches() {
    std::string text = "        'settings 1')\n            case ${names[0]} in\n";
    for (const auto& setting : settingDescriptions())
        text += "    " + branch(setting.name, joined(setting.values, " "));
    return text + "            esac ;;\n";
}

std::string argumentBranch(std::string_view command, const Argument& argument, std::size_t index) {
    const auto pattern =
        "'" + std::string(command) + " '" + (argument.isRepeated() ? "*" : std::to_string(index));
    switch (argument.kind) {
    case Argument::Kind::choice:
        return branch(pattern, joined(argument.choices(), " "));
    case Argument::Kind::file:
        return "        " + pattern + ") return ;; # readline completes files\n";
    case Argument::Kind::binnedItem:
        return "        " + pattern + ") _vexmoor_items; return ;;\n";
    case Argument::Kind::settingValue:
        return settingBranches();
    }
    return {};
}

std::string argumentBranches() {
    std::string text = branch("' 0'", joined(commandNames(), " "));
    for (const auto& command : commandDescriptions())
        for (std::size_t i = 0; i < command.arguments.size(); ++i)
            text += argumentBranch(command.name, command.arguments[i], i);
    return text;
}

} // namespace

std::string bashCompletion() {
    return std::string("# bash completion for vexmoor. ") + kGeneratedNote + R"(

# Offers the items that can be put back, quoted as the word on the line is.
_vexmoor_items() {
    local quote='' rest=$word plain='' item shown
    compopt +o default 2>/dev/null
    if [[ $rest == [\"\']* ]]; then
        quote=${rest:0:1}
        rest=${rest:1}
    fi
    if [[ $quote == \' ]]; then
        plain=$rest
    else
        while [[ $rest == *\\* ]]; do
            plain+=${rest%%\\*}
            rest=${rest#*\\}
            plain+=${rest:0:1}
            rest=${rest:1}
        done
        plain+=$rest
    fi
    while IFS=$'\t' read -r item _; do
        case $quote in
        \') shown=${item//\'/\'\\\'\'} ;;
        \") shown=${item//\\/\\\\} shown=${shown//\"/\\\"}
            shown=${shown//\$/\\\$} shown=${shown//\`/\\\`} ;;
        *)  printf -v shown %q "$item"
            shown=${shown//:/\\:} shown=${shown//=/\\=} ;; # readline divides words there
        esac
        COMPREPLY+=("$shown")
    done < <(command vexmoor complete -- "$plain" 2>/dev/null)
}

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
           joined(optionsWithValue(), "' | '") + R"(') option=$this ;;
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
)" + optionValueBranches() +
           R"(        esac
    elif [[ -z $literal && $word == -* ]]; then
        case $command in
)" + optionBranches() +
           R"(        esac
    else
        case "$command ${#names[@]}" in
)" + argumentBranches() +
           R"(        esac
    fi
    compopt +o default 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}
complete -o default -F _vexmoor vexmoor
)";
}

} // namespace vexmoor
