#pragma once

#include "cli/CommandLine.h"

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

// The only description of the command line: parsing, usage errors, help, completions and the manual
// are generated from it. Texts are marked() here and translated by text() when shown.

namespace vexmoor {

/// Returns the allowed values of an option or argument.
using Choices = std::vector<std::string> (*)();

struct Option {
    std::string_view letters; ///< "rR" for -r and -R; may be empty
    std::string_view name;    ///< "force" for --force; may be empty
    /// Where the value is stored. A bool takes no value; a number must be an integer of at least 1.
    std::variant<bool Invocation::*, std::size_t Invocation::*, std::string Invocation::*> target;
    const char* description;
    std::string_view value = {}; ///< placeholder of the value in the help: "N"
    Choices choices = nullptr;   ///< allowed values; null if any value is allowed
    bool Invocation::*undoes =
        nullptr; ///< the opposite option; the last of the two given takes effect

    [[nodiscard]] bool takesValue() const {
        return !std::holds_alternative<bool Invocation::*>(target);
    }
    /// Returns all spellings, letters first: "-r", "-R", "--recursive".
    [[nodiscard]] std::vector<std::string> names() const;
    /// The name used in messages: "--recursive", or "-n" if there is no long one.
    [[nodiscard]] std::string mainName() const;
};

/// A positional argument. Arguments are listed in their order.
struct Argument {
    /// What the shells complete it with.
    enum class Kind { choice, file, binnedItem, settingValue };

    std::string_view name; ///< "PATH"
    Kind kind;
    /// Where the word is stored. A list takes all remaining words.
    std::variant<std::string Invocation::*, std::vector<std::string> Invocation::*> target;
    const char* description;
    bool isRequired = false;
    Choices choices = nullptr;
    const char* complaint = ""; ///< usage error for a word that is not a choice; "%1" is the word

    [[nodiscard]] bool isRepeated() const {
        return std::holds_alternative<std::vector<std::string> Invocation::*>(target);
    }
};

struct Example {
    const char* command;
    const char* meaning;
};

struct CommandDescription {
    std::string_view name;
    Invocation::Command command;
    const char* summary;
    std::span<const Option> options;
    std::span<const Argument> arguments = {};
    const char* details = ""; ///< help paragraphs, separated by empty lines
    std::span<const Example> examples = {};
    /// Pairs that cannot be combined: main names of options, names of arguments.
    std::span<const std::pair<std::string_view, std::string_view>> conflicts = {};
    /// Other words that users may type for the command, separated by spaces; the error suggests the
    /// command.
    std::string_view synonyms = {};
};

/// Describes the program itself: what may precede or replace a command.
const CommandDescription& programDescription();

/// Returns all commands in the order in which they are shown.
std::span<const CommandDescription> commandDescriptions();

/// Returns the command with that name, including hidden ones; null if there is none.
const CommandDescription* commandNamed(std::string_view name);

/// Returns the names of the shown commands: "feed", "put-back", …
std::vector<std::string> commandNames();

std::string joined(const std::vector<std::string>& words, std::string_view between);

} // namespace vexmoor
