#pragma once

#include "cli/CommandLine.h"

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

// The one description of the command line: parsing, complaints, help, completions and the manual
// come from it. Its texts are marked(); text() translates them where they are shown.

namespace vexmoor {

/// What a value can be.
using Choices = std::vector<std::string> (*)();

struct Option {
    std::string_view letters; ///< "rR" for -r and -R; may be empty
    std::string_view name;    ///< "force" for --force; may be empty
    /// Where its value is stored. A bool takes none, a number is a whole one of 1 or more.
    std::variant<bool Invocation::*, std::size_t Invocation::*, std::string Invocation::*> target;
    const char* description;
    std::string_view value = {};        ///< what stands for its value: "N"
    Choices choices = nullptr;          ///< of the value; null: it is not one of a few
    bool Invocation::*undoes = nullptr; ///< of two contrary options the last one counts

    [[nodiscard]] bool takesValue() const {
        return !std::holds_alternative<bool Invocation::*>(target);
    }
    /// As they are typed, letters first: "-r", "-R", "--recursive".
    [[nodiscard]] std::vector<std::string> names() const;
    /// The name used in messages: "--recursive", or "-n" if there is no long one.
    [[nodiscard]] std::string mainName() const;
};

/// A word that is no option. Those of a command are given in their order.
struct Argument {
    /// What completes it.
    enum class Kind { choice, file, binnedItem, settingValue };

    std::string_view name; ///< "PATH"
    Kind kind;
    /// Where the word is stored. A list takes all words that are left.
    std::variant<std::string Invocation::*, std::vector<std::string> Invocation::*> target;
    const char* description;
    bool isRequired = false;
    Choices choices = nullptr;
    const char* complaint = ""; ///< about a word that is no choice, "%1"

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
    const char* details = ""; ///< paragraphs of the help, an empty line between two
    std::span<const Example> examples = {};
    /// What cannot be given together: main names of options, names of arguments.
    std::span<const std::pair<std::string_view, std::string_view>> conflicts = {};
    /// What else is typed for it, separated by spaces; it is suggested then.
    std::string_view synonyms = {};
};

/// The program itself: what can stand before a command, or without one.
const CommandDescription& programDescription();

/// In the order of showing.
std::span<const CommandDescription> commandDescriptions();

/// The command of that name, one that is not shown too; null if there is none.
const CommandDescription* commandNamed(std::string_view name);

/// "feed", "put-back", …
std::vector<std::string> commandNames();

std::string joined(const std::vector<std::string>& words, std::string_view between);

} // namespace vexmoor
