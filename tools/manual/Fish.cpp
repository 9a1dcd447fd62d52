#include "CommandModel.h"

#include "cli/SettingDescription.h"

namespace vexmoor {

namespace {

std::string quoted(const std::string& text) {
    std::string result = "'";
    for (const char c : text) {
        if (c == '\'' || c == '\\')
            result += '\\';
        result += c;
    }
    return result + "'";
}

std::string optionLines(const CommandModel& command, const std::string& condition) {
    std::string text;
    for (const auto& option : command.options) {
        text += "complete -c vexmoor -n " + quoted(condition);
        for (const auto& name : option.names)
            text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
        if (!option.value.empty())
            text += " -x";
        if (!option.choices.empty())
            text += " -a " + quoted(joined(option.choices, " "));
        text += " -d " + quoted(option.description) + "\n";
    }
    return text;
}

std::string wordsLine(const std::string& condition, const std::vector<std::string>& words,
                      const std::string& description) {
    return "complete -c vexmoor -n " + quoted(condition) + " -a " + quoted(joined(words, " ")) +
           " -d " + quoted(description) + "\n";
}

std::string argumentLines(const CommandModel& command) {
    std::string text;
    for (std::size_t i = 0; i < command.arguments.size(); ++i) {
        const auto& argument = command.arguments[i];
        if (argument.names.front() == "PATH")
            text += "complete -c vexmoor -n '__vexmoor_at " + command.name + "' -F\n";
        else if (!argument.choices.empty() && command.name != "settings")
            text += wordsLine("__vexmoor_at " + command.name + " " + std::to_string(i) +
                                  (argument.isRepeated ? " ..." : ""),
                              argument.choices, argument.description);
    }
    return text;
}

std::string settingLines() {
    std::string text;
    for (const auto& setting : settingDescriptions())
        text += wordsLine("__vexmoor_at settings 0", {setting.name}, setting.description) +
                wordsLine("__vexmoor_at settings 1 " + setting.name, setting.values,
                          setting.description);
    return text;
}

} // namespace

std::string fishCompletion(const CommandModel& program) {
    std::string text = std::string("# fish completion for vexmoor. ") + kGeneratedNote + R"(

# Prints the command on the line and the names after it, without options and their values.
function __vexmoor_words
    set -l command
    set -l isValue
    set -l isLiteral
    for token in (commandline -opc)[2..-1]
        if test -n "$isValue"
            set isValue
        else if test -z "$isLiteral" -a "x$token" = x--
            set isLiteral 1
        else if test -z "$isLiteral"; and string match -q -- '-*' $token
            contains -- "$command $token" ')" +
                       joined(optionsWithValue(program), "' '") + R"('; and set isValue 1
        else
            test -n "$command"; or set command $token
            echo -- $token
        end
    end
end

# True if the cursor is in this command after that number of names ("..." for more).
function __vexmoor_at
    set -l words (__vexmoor_words)
    test "$words[1]" = "$argv[1]"; or return 1
    set -q argv[2]; or return 0
    test "$argv[3]" = ...; and test (count $words) -gt $argv[2]; and return 0
    test (count $words) -eq (math $argv[2] + 1); or return 1
    set -q argv[3]; or return 0
    test "$words[2]" = "$argv[3]"
end

complete -c vexmoor -f
)" + optionLines(program, "__vexmoor_at ''");
    for (const auto& command : program.commands)
        text += wordsLine("__vexmoor_at ''", {command.name}, command.description) +
                optionLines(command, "__vexmoor_at " + command.name) + argumentLines(command);
    return text + settingLines();
}

} // namespace vexmoor
