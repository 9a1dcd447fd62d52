#include "Help.h"

#include "base/Text.h"
#include "cli/Columns.h"
#include "cli/SettingDescription.h"
#include "cli/Terminal.h"

#include <unistd.h>

#include <algorithm>
#include <sstream>

namespace vexmoor {

namespace {

constexpr std::size_t kWidthOfNoTerminal = 80;
constexpr std::size_t kNarrowest = 40;
constexpr std::size_t kWidest = 100;
constexpr std::size_t kWidestLeft =
    32; ///< maximum of the left column; a wider entry has its own line
constexpr std::size_t kIndent = 2;
constexpr std::size_t kGap = 2;

struct Row {
    std::string left;
    std::string right;
};

/// Wraps text between words. The first line starts at column `indent`, the others are indented to
/// it. Keeps existing line breaks.
std::string wrapped(const std::string& text, std::size_t indent, std::size_t width) {
    std::string result;
    std::size_t column = indent;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        for (std::string word; words >> word;) {
            const bool isFirst = column == indent;
            if (!isFirst && column + 1 + characters(word) > width) {
                result += "\n" + std::string(indent, ' ');
                column = indent;
            } else if (!isFirst) {
                result += ' ';
                ++column;
            }
            result += word;
            column += characters(word);
        }
        result += '\n';
        column = indent;
    }
    return result;
}

std::string section(const std::string& heading, const std::vector<Row>& rows, std::size_t width) {
    if (rows.empty())
        return {};
    std::size_t left = 0;
    for (const auto& row : rows)
        if (characters(row.left) <= kWidestLeft)
            left = std::max(left, characters(row.left));
    const auto indent = kIndent + left + kGap;
    std::string result = "\n" + heading + "\n";
    for (const auto& row : rows) {
        result += std::string(kIndent, ' ') + leftAligned(row.left, left);
        result +=
            characters(row.left) > left ? "\n" + std::string(indent, ' ') : std::string(kGap, ' ');
        result += wrapped(row.right, indent, width);
    }
    return result;
}

/// Appends the possible values to the description.
std::string described(const char* description, Choices choices) {
    return text(description) + (choices != nullptr ? " (" + joined(choices(), ", ") + ")" : "");
}

std::vector<Row> optionRows(const CommandDescription& command) {
    std::vector<Row> rows;
    for (const auto& option : command.options) {
        auto names = joined(option.names(), ", ");
        if (option.letters.empty())
            names.insert(0, std::string(4, ' ')); // aligns it with "-h, --help"
        if (option.takesValue())
            names.append(" ").append(option.value);
        rows.push_back({names, described(option.description, option.choices)});
    }
    return rows;
}

std::vector<Row> argumentRows(const CommandDescription& command) {
    std::vector<Row> rows;
    for (const auto& argument : command.arguments)
        rows.push_back(
            {std::string(argument.name), described(argument.description,
                                                   command.command == Invocation::Command::settings
                                                       ? nullptr // they are listed below
                                                       : argument.choices)});
    return rows;
}

std::vector<Row> commandRows() {
    std::vector<Row> rows;
    for (const auto& command : commandDescriptions())
        rows.push_back({std::string(command.name), text(command.summary)});
    return rows;
}

std::vector<Row> settingRows() {
    std::vector<Row> rows;
    for (const auto& setting : settingDescriptions())
        rows.push_back(
            {setting.name, text(setting.description) + " (" + joined(setting.values, ", ") + ")"});
    return rows;
}

std::vector<Row> exampleRows(const CommandDescription& command) {
    std::vector<Row> rows;
    for (const auto& [line, meaning] : command.examples)
        rows.push_back({line, text(meaning)});
    return rows;
}

bool isProgram(const CommandDescription& command) {
    return &command == &programDescription();
}

} // namespace

std::string usageWords(const CommandDescription& command) {
    if (isProgram(command))
        return "[COMMAND] [OPTION]...";
    auto words = std::string(command.name) + " [OPTION]...";
    std::string closing;
    for (const auto& argument : command.arguments) {
        const auto word = std::string(argument.name) + (argument.isRepeated() ? "..." : "");
        words += argument.isRequired ? " " + word : " [" + word;
        closing += argument.isRequired ? "" : "]";
    }
    return words + closing;
}

std::string helpText(const CommandDescription& command) {
    const auto columns = columnsOf(STDOUT_FILENO).value_or(kWidthOfNoTerminal);
    return helpText(command, std::clamp(columns, kNarrowest, kWidest));
}

std::string helpText(const CommandDescription& command, std::size_t width) {
    std::string help = wrapped(text("Usage: %1", {"vexmoor " + usageWords(command)}), 0, width);
    help += "\n" + wrapped(text(command.summary) + ".", 0, width);
    if (*command.details != '\0')
        help += "\n" + wrapped(text(command.details), 0, width);
    if (isProgram(command))
        help += section(text("Commands:"), commandRows(), width);
    help += section(text("Arguments:"), argumentRows(command), width);
    if (command.command == Invocation::Command::settings)
        help += section(text("Settings:"), settingRows(), width);
    help += section(text("Options:"), optionRows(command), width);
    help += section(text("Examples:"), exampleRows(command), width);
    if (isProgram(command))
        help += "\n" + wrapped(text("'vexmoor help COMMAND' prints the options and examples of a "
                                    "command, 'man vexmoor' the manual."),
                               0, width);
    return help;
}

std::string usageComplaint(const CommandDescription& command, const std::string& sentence) {
    const bool isOfOne = !isProgram(command) && command.command != Invocation::Command::help;
    const auto name = isOfOne ? " " + std::string(command.name) : "";
    return complaint(printable(sentence)) + text("Try '%1 --help'.", {"vexmoor" + name}) + "\n";
}

} // namespace vexmoor
