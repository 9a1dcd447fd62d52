#include "Manual.h"

#include "cli/SettingDescription.h"

namespace vexmoor {

namespace {

constexpr const char* kComplete = "complete -c vexmoor -n ";

std::string singleQuoted(std::string_view text) {
    std::string result = "'";
    for (const char c : text) {
        if (c == '\'' || c == '\\')
            result += '\\';
        result += c;
    }
    return result + "'";
}

std::string optionLines(const CommandDescription& command, const std::string& condition) {
    std::string text;
    for (const auto& option : command.options) {
        text += kComplete + singleQuoted(condition);
        for (const char letter : option.letters)
            text.append(" -s ").append(1, letter);
        if (!option.name.empty())
            text.append(" -l ").append(option.name);
        if (option.takesValue())
            text += " -x";
        if (option.choices != nullptr)
            text += " -a " + singleQuoted(joined(option.choices(), " "));
        text += " -d " + singleQuoted(option.description) + "\n";
    }
    return text;
}

std::string wordsLine(const std::string& condition, const std::vector<std::string>& words,
                      std::string_view description) {
    return kComplete + singleQuoted(condition) + " -a " + singleQuoted(joined(words, " ")) +
           " -d " + singleQuoted(description) + "\n";
}

std::string settingLines() {
    std::string text;
    for (const auto& setting : settingDescriptions())
        text += wordsLine("__vexmoor_at settings 0", {setting.name}, setting.description) +
                wordsLine("__vexmoor_at settings 1 " + setting.name, setting.values,
                          setting.description);
    return text;
}

std::string argumentLines(const CommandDescription& command) {
    std::string text;
    for (std::size_t i = 0; i < command.arguments.size(); ++i) {
        const auto& argument = command.arguments[i];
        const auto at = "__vexmoor_at " + std::string(command.name) + " " + std::to_string(i) +
                        (argument.isRepeated() ? " ..." : "");
        switch (argument.kind) {
        case Argument::Kind::choice:
            if (command.command != Invocation::Command::settings) // each has its description there
                text += wordsLine(at, argument.choices(), argument.description);
            break;
        case Argument::Kind::file:
            text += kComplete + singleQuoted(at) + " -F\n";
            break;
        case Argument::Kind::binnedItem:
            text += kComplete + singleQuoted(at) + " -k -a '(__vexmoor_items)'\n";
            break;
        case Argument::Kind::settingValue:
            text += settingLines();
            break;
        }
    }
    return text;
}

} // namespace

std::string fishCompletion() {
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
                       joined(optionsWithValue(), "' '") + R"('; and set isValue 1
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

# The items that can be put back, newest first, with what they are.
function __vexmoor_items
    command -q vexmoor; or return
    command vexmoor complete -- (commandline -ct | string unescape; or true)[1] 2>/dev/null
end

complete -c vexmoor -f
)" + optionLines(programDescription(), "__vexmoor_at ''");
    for (const auto& command : commandDescriptions())
        text += wordsLine("__vexmoor_at ''", {std::string(command.name)}, command.summary) +
                optionLines(command, "__vexmoor_at " + std::string(command.name)) +
                argumentLines(command);
    return text;
}

} // namespace vexmoor
