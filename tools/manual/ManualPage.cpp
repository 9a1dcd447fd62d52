#include "Manual.h"

#include "cli/SettingDescription.h"

#include <sstream>

namespace vexmoor {

namespace {

/// Escapes text for the formatter, one sentence per line.
std::string line(const std::string& text) {
    std::string result = text.starts_with('.') || text.starts_with('\'') ? "\\&" : "";
    for (const char c : text) {
        if (c == ' ' && result.ends_with('.'))
            result += '\n';
        else
            result.append(c == '\\' ? "\\e" : std::string(1, c));
    }
    return result + "\n";
}

/// Returns "Fl Fl mode" for --mode, "Fl n" for -n.
std::string flag(const std::string& name) {
    return name.starts_with("--") ? "Fl Fl " + name.substr(2) : "Fl " + name.substr(1);
}

std::string optionMacros(const Option& option, const std::string& name) {
    return flag(name) + (option.takesValue() ? " Ar " + std::string(option.value) : "");
}

std::string synopsis(const CommandDescription& command) {
    std::string text = ".Nm\n.Cm " + std::string(command.name) + "\n";
    for (const auto& option : command.options)
        if (option.name != "help")
            text += ".Op " + optionMacros(option, option.mainName()) + "\n";
    for (const auto& argument : command.arguments) {
        const bool isNested = !argument.isRequired && &argument != &command.arguments.front();
        if (isNested)
            text.back() = ' '; // an optional argument requires the previous one
        text += std::string(argument.isRequired ? ".Ar "
                            : isNested          ? "Op Ar "
                                                : ".Op Ar ")
                    .append(argument.name) +
                (argument.isRepeated() ? " ...\n" : "\n");
    }
    return text;
}

std::string item(const std::string& macros, const char* description, Choices choices) {
    std::string text = ".It " + macros + "\n" + line(std::string(description) + ".");
    if (choices != nullptr)
        text += line("One of " + joined(choices(), ", ") + ".");
    return text;
}

std::string parameters(const CommandDescription& command) {
    std::string items;
    for (const auto& option : command.options) {
        if (option.name == "help" && &command != &programDescription())
            continue;
        std::vector<std::string> macros;
        for (const auto& name : option.names())
            macros.push_back(optionMacros(option, name));
        items += item(joined(macros, " , "), option.description, option.choices);
    }
    for (const auto& argument : command.arguments)
        items += item("Ar " + std::string(argument.name), argument.description, argument.choices);
    return items.empty() ? "" : ".Bl -tag -width Ds\n" + items + ".El\n";
}

/// Formats paragraphs that are separated by empty lines.
std::string paragraphs(const std::string& text) {
    std::string result;
    std::istringstream lines(text);
    for (std::string paragraph; std::getline(lines, paragraph);)
        result += paragraph.empty() ? "" : ".Pp\n" + line(paragraph);
    return result;
}

std::string commandSections() {
    std::string text;
    for (const auto& command : commandDescriptions())
        text += ".Ss " + std::string(command.name) + "\n" +
                line(std::string(command.summary) + ".") + paragraphs(command.details) +
                parameters(command);
    return text;
}

std::string examples() {
    std::string text;
    for (const auto& command : commandDescriptions())
        for (const auto& example : command.examples)
            text += ".It Li " + std::string(example.command) + "\n" +
                    line(std::string(example.meaning) + ".");
    return ".Sh EXAMPLES\n.Bl -tag -width Ds\n" + text + ".El\n";
}

std::string settings() {
    std::string text = ".Sh SETTINGS\n.Bl -tag -width Ds\n";
    for (const auto& setting : settingDescriptions())
        text += ".It Cm " + setting.name + "\n" + line(std::string(setting.description) + ".") +
                line("One of " + joined(setting.values, ", ") + ".");
    return text + ".El\n";
}

constexpr const char* kAfterwards = R"(.Sh ENVIRONMENT
.Bl -tag -width Ds
.It Ev XDG_DATA_HOME
Where the user's data lies;
.Pa ~/.local/share
where it is not set.
.It Ev XDG_CONFIG_HOME
Where the user's configuration lies;
.Pa ~/.config
where it is not set.
.It Ev NO_COLOR
Where it is set, nothing is coloured; nor where
.Ev TERM
is
.Dq dumb
or the output is no terminal.
.El
.Sh FILES
.Bl -tag -width Ds
.It Pa $XDG_DATA_HOME/vexmoor
The history, the settings and the journals of the newest batches.
.It Pa $XDG_DATA_HOME/Trash
The Bin of the home folder's volume; other volumes have their own.
.El
.Sh EXIT STATUS
.Bl -tag -width Ds
.It 0
All was done.
.It 1
Some items failed, or were left when the command was stopped, or it is not known what became of them.
.It 2
The command line could not be understood; nothing was touched.
.It 3
The command was declined, or cannot reach what it needs; nothing was touched.
.El
)";

constexpr const char* kFurtherExamples = R"(.Pp
Dissolve whatever a program names, names of any kind included:
.Bd -literal -offset indent
find . -name '*.o' -print0 | xargs -0 vexmoor feed --mode dissolve --yes --
.Ed
.Pp
The names of the newest sacrifices, for another program:
.Bd -literal -offset indent
vexmoor history --json | jq -r '.[].name'
.Ed
)";

} // namespace

std::string manualPage() {
    const auto& program = programDescription();
    std::string text = std::string(".\\\" ") + kGeneratedNote +
                       "\n.Dd November 23, 2026\n.Dt VEXMOOR 1\n.Os\n.Sh NAME\n.Nm vexmoor\n"
                       ".Nd throw files away with a little ceremony\n.Sh SYNOPSIS\n.Nm\n";
    for (const auto& command : commandDescriptions())
        text += synopsis(command);
    return text + ".Sh DESCRIPTION\n" + line(std::string(program.summary) + ".") +
           "Where the desktop application runs, it carries the commands out.\n"
           ".Pp\nBehind\n.Fl Fl\nevery argument is a name.\n"
           "What is asked for as JSON is one document on the standard output; complaints go to the "
           "standard error.\nAn interrupt ends a command between two items.\n" +
           parameters(program) + ".Sh COMMANDS\n" + commandSections() + settings() + kAfterwards +
           examples() + kFurtherExamples;
}

} // namespace vexmoor
