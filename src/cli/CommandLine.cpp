#include "CommandLine.h"

#include "base/Path.h"
#include "base/Text.h"
#include "cli/CommandTable.h"
#include "cli/ExitStatus.h"
#include "cli/Help.h"
#include "cli/Suggestion.h"
#include "cli/Terminal.h"
#include "integration/Quoting.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <sstream>

namespace vexmoor {

namespace {

using Command = Invocation::Command;

/// Parses the words from left to right and stops at the first usage error.
class Parser {
  public:
    explicit Parser(std::vector<std::string> words) : m_words(std::move(words)) {}

    void run() {
        while (m_next < m_words.size() && !isOver())
            take(m_words[m_next++]);
        if (m_invocation.help && isProgram() && m_next < m_words.size())
            if (const auto* const command = commandNamed(m_words[m_next])) // "--help feed"
                m_command = command;
        if (!isOver())
            takeArguments();
        if (!isOver())
            checkConflicts();
    }

    [[nodiscard]] Invocation& invocation() { return m_invocation; }
    [[nodiscard]] const CommandDescription& command() const { return *m_command; }
    [[nodiscard]] const std::string& complaint() const { return m_complaint; }

  private:
    [[nodiscard]] bool isOver() const {
        return !m_complaint.empty() || m_invocation.help || m_invocation.version;
    }
    [[nodiscard]] bool isProgram() const { return m_command == &programDescription(); }

    void take(const std::string& word) {
        const bool isOption = !m_isLiteral && word.size() > 1 && word.starts_with('-');
        if (word == "--" && !m_isLiteral)
            m_isLiteral = true;
        else if (isOption && word.starts_with("--"))
            takeLong(word);
        else if (isOption)
            takeLetters(word);
        else if (isProgram())
            choose(word);
        else
            m_arguments.push_back(word);
    }

    void choose(const std::string& word) {
        const auto* const command = commandNamed(word);
        if (command != nullptr && m_invocation.probe) {
            complainAboutBoth("--probe", word);
        } else if (command != nullptr) {
            m_command = command;
            m_invocation.command = command->command;
        } else if (word.empty()) {
            complainAboutEmpty("COMMAND");
        } else {
            m_complaint = text("%1 is no command.", {word}) + didYouMean(commandFor(word));
            if (isThere(word))
                m_complaint += " " + text("To feed the file with that name: %1",
                                          {"vexmoor feed " + shellQuoted(word)});
        }
    }

    static bool isThere(const std::string& name) {
        std::error_code code;
        return std::filesystem::exists(std::filesystem::symlink_status(name, code));
    }

    /// Returns the command closest to an unknown word; empty if none is close enough.
    static std::string commandFor(const std::string& word) {
        if (word == "version")
            return "--version";
        for (const auto& command : commandDescriptions()) {
            std::istringstream synonyms{std::string(command.synonyms)};
            for (std::string synonym; synonyms >> synonym;)
                if (word == synonym)
                    return std::string(command.name);
        }
        return nearest(word, commandNames());
    }

    void takeLong(const std::string& word) {
        const auto equals = word.find('=');
        const auto typed = word.substr(0, equals);
        const auto* const option = optionNamed(typed.substr(2));
        if (option == nullptr)
            complainAboutOption(typed);
        else if (option->takesValue())
            setValue(*option, typed,
                     equals == std::string::npos ? nextWord()
                                                 : std::optional(word.substr(equals + 1)));
        else if (equals != std::string::npos)
            m_complaint = text("%1 takes no value.", {typed});
        else
            setFlag(*option);
    }

    [[nodiscard]] const Option* optionNamed(std::string_view name) const {
        const auto& options = m_command->options;
        const auto found = std::ranges::find(options, name, &Option::name);
        return name.empty() || found == options.end() ? nullptr : &*found;
    }

    /// Parses joined short options: "-rf", "-n5", "-n 5".
    void takeLetters(const std::string& word) {
        for (std::size_t i = 1; i < word.size() && m_complaint.empty(); ++i) {
            const auto& options = m_command->options;
            const auto option = std::ranges::find_if(options, [&](const Option& each) {
                return each.letters.find(word[i]) != std::string_view::npos;
            });
            const std::string typed = {'-', word[i]};
            if (option == options.end()) {
                complainAboutOption(word);
            } else if (option->takesValue()) {
                setValue(*option, typed,
                         i + 1 < word.size() ? std::optional(word.substr(i + 1)) : nextWord());
                return;
            } else {
                setFlag(*option);
            }
        }
    }

    std::optional<std::string> nextWord() {
        return m_next < m_words.size() ? std::optional(m_words[m_next++]) : std::nullopt;
    }

    void setFlag(const Option& option) {
        m_given.insert(option.mainName());
        m_invocation.*std::get<bool Invocation::*>(option.target) = true;
        if (option.undoes != nullptr)
            m_invocation.*option.undoes = false;
    }

    /// `value` is nullopt if the line ends before it.
    void setValue(const Option& option, const std::string& typed,
                  const std::optional<std::string>& value) {
        m_given.insert(option.mainName());
        if (const auto* const number = std::get_if<std::size_t Invocation::*>(&option.target)) {
            const auto count = value ? wholeNumber(*value) : std::nullopt;
            m_invocation.*(*number) = count.value_or(0);
            if (!count)
                m_complaint = text("%1 takes a whole number of 1 or more.", {typed});
            return;
        }
        m_invocation.*std::get<std::string Invocation::*>(option.target) = value.value_or("");
        const auto choices = option.choices();
        if (!value || std::ranges::find(choices, *value) == choices.end())
            m_complaint = text("%1 can be: %2.", {typed, joined(choices, ", ")}) +
                          didYouMean(nearest(value.value_or(""), choices));
    }

    static std::optional<std::size_t> wholeNumber(const std::string& text) {
        std::size_t number = 0;
        const auto* const end = text.data() + text.size();
        const auto [rest, error] = std::from_chars(text.data(), end, number);
        return error == std::errc() && rest == end && number > 0 ? std::optional(number)
                                                                 : std::nullopt;
    }

    void complainAboutOption(const std::string& typed) {
        if (isProgram()) {
            const bool isOfCommand = std::ranges::any_of(commandDescriptions(), [&](auto& command) {
                return std::ranges::any_of(command.options, [&](const Option& option) {
                    const auto names = option.names();
                    return std::ranges::find(names, typed) != names.end();
                });
            });
            m_complaint = isOfCommand ? text("%1 goes after a command.", {typed})
                                      : text("%1 is no option.", {typed});
            if (isOfCommand)
                return;
        } else {
            m_complaint = text("%1 is no option of %2.", {typed, m_command->name});
        }
        m_complaint += didYouMean(optionFor(typed));
    }

    [[nodiscard]] std::string optionFor(const std::string& typed) const {
        std::vector<std::string> names;
        for (const auto& option : m_command->options)
            if (!option.name.empty())
                names.emplace_back(option.name);
        const auto name = nearest(typed.substr(typed.find_first_not_of('-')), names);
        return name.empty() ? "" : "--" + name;
    }

    /// Assigns the words to the command's arguments in order.
    void takeArguments() {
        std::size_t next = 0;
        for (const auto& argument : m_command->arguments) {
            const auto count = argument.isRepeated()
                                   ? m_arguments.size() - next
                                   : std::min<std::size_t>(1, m_arguments.size() - next);
            if (count == 0 && argument.isRequired && !m_invocation.fromMenu && !m_invocation.force)
                m_complaint = text("%1 is missing.", {argument.name});
            if (count > 0)
                m_given.emplace(argument.name);
            for (const auto end = next + count; next < end; ++next)
                takeArgument(argument, m_arguments[next]);
        }
        if (next < m_arguments.size() && m_complaint.empty())
            m_complaint = text(
                "%1 got too many arguments: %2",
                {m_command->name, joined({m_arguments.begin() + static_cast<std::ptrdiff_t>(next),
                                          m_arguments.end()},
                                         " ")});
    }

    void takeArgument(const Argument& argument, const std::string& word) {
        if (!m_complaint.empty())
            return;
        if (word.empty() && m_command->command != Command::complete)
            complainAboutEmpty(argument.name);
        else if (argument.choices != nullptr)
            checkChoice(argument, word);
        if (const auto* const list =
                std::get_if<std::vector<std::string> Invocation::*>(&argument.target))
            (m_invocation.*(*list)).push_back(word);
        else
            m_invocation.*std::get<std::string Invocation::*>(argument.target) = word;
    }

    void checkChoice(const Argument& argument, const std::string& word) {
        const auto choices = argument.choices();
        const bool isFormer = m_command->command == Command::integrate && argument.isRepeated() &&
                              word == kFormerDolphinId;
        if (isFormer || std::ranges::find(choices, word) != choices.end())
            return;
        const auto meant =
            m_command->command == Command::help ? commandFor(word) : nearest(word, choices);
        m_complaint =
            text(argument.complaint, {word}) +
            (meant.empty() ? " " + text("%1 can be: %2.", {argument.name, joined(choices, ", ")})
                           : didYouMean(meant));
    }

    /// Rejects an empty word: it is usually an unset shell variable and must not mean the current
    /// folder.
    void complainAboutEmpty(std::string_view argument) {
        m_complaint = text("%1 is empty. Nothing was touched.", {argument});
    }

    void complainAboutBoth(std::string_view one, std::string_view other) {
        m_complaint = text("%1 and %2 can't be given together.", {one, other});
    }

    void checkConflicts() {
        for (const auto& [one, other] : m_command->conflicts)
            if (m_given.contains(std::string(one)) && m_given.contains(std::string(other)))
                complainAboutBoth(one, other);
    }

    std::vector<std::string> m_words;
    std::size_t m_next = 0;
    bool m_isLiteral = false; ///< after "--"
    const CommandDescription* m_command = &programDescription();
    std::vector<std::string> m_arguments;
    std::set<std::string> m_given;
    Invocation m_invocation;
    std::string m_complaint;
};

/// Decodes file URIs: file managers pass them for names that a command line cannot represent.
void decodeUris(std::vector<std::string>& items) {
    for (auto& item : items)
        if (item.starts_with("file:///"))
            if (const auto path = pathFromFileUri(item))
                item = path->native();
}

/// Returns the help for `vexmoor feed --help`, `vexmoor help feed` and `vexmoor help`.
std::string helpFor(const CommandDescription& command, const Invocation& invocation) {
    if (command.command != Command::help || invocation.help)
        return helpText(command);
    const auto* const named = commandNamed(invocation.name);
    return helpText(named != nullptr ? *named : programDescription());
}

} // namespace

ParsedCommandLine parseCommandLine(int argc, const char* const* argv) {
    Parser parser({argv + std::min(argc, 1), argv + argc});
    parser.run();
    ParsedCommandLine parsed;
    auto& invocation = parser.invocation();
    if (!parser.complaint().empty()) {
        parsed.status = kUsage;
        parsed.error = usageComplaint(parser.command(), parser.complaint());
    } else if (invocation.help || invocation.command == Command::help) {
        parsed.output = helpFor(parser.command(), invocation);
    } else if (invocation.version) {
        parsed.output = "vexmoor " VEXMOOR_VERSION "\n";
    } else {
        if (invocation.probe)
            invocation.command = Command::probe;
        if (invocation.command == Command::feed)
            decodeUris(invocation.items);
        parsed.invocation = std::move(invocation);
    }
    return parsed;
}

} // namespace vexmoor
