#pragma once

#include "base/Printable.h"
#include "intake/Ports.h"

#include <optional>
#include <string>
#include <string_view>

namespace vexmoor {

enum class Colour { none, red, green, yellow, dim };

/// Returns the text in a colour if the descriptor is a terminal that supports colours; NO_COLOR and
/// TERM=dumb disable them.
std::string coloured(const std::string& text, Colour colour, int descriptor);

/// Returns the width of a terminal; nullopt if the descriptor is no terminal or the width is
/// unknown.
std::optional<std::size_t> columnsOf(int descriptor);

/// Returns the sentence as an error message: "vexmoor: …".
std::string complaint(const std::string& sentence);

/// Prints the sentence as an error message on stderr.
void complain(const std::string& sentence);

/// Asks questions on the terminal. Leaves failures to the command, which gets them in its result.
class TerminalDialogs : public Dialogs {
  public:
    explicit TerminalDialogs(bool assumeYes) : m_assumeYes(assumeYes) {}

    /// Asks on the terminal and waits. Without a terminal, only --yes confirms.
    Answer ask(const Question& question);
    void ask(const Question& question, std::function<void(const Answer&)> answered) override {
        answered(ask(question));
    }
    void report(const FailureReport&) override {}
    void beep() override {}

    /// Like ask(), for a question of one line: "Feed notes.txt?".
    bool confirms(const std::string& question);

    /// True if a question could not be asked for lack of a terminal.
    [[nodiscard]] bool lackedTerminal() const { return m_lackedTerminal; }

  private:
    bool canAsk();

    bool m_assumeYes;
    bool m_lackedTerminal = false;
};

} // namespace vexmoor
