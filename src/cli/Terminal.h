#pragma once

#include "base/Printable.h"
#include "intake/Ports.h"

#include <optional>
#include <string>
#include <string_view>

namespace vexmoor {

enum class Colour { none, red, green, yellow, dim };

/// The text in a colour where the descriptor is a terminal that shows colours, which NO_COLOR and
/// TERM=dumb deny; else the text itself.
std::string coloured(const std::string& text, Colour colour, int descriptor);

/// The width of a terminal; nullopt if the descriptor is none, or it does not know.
std::optional<std::size_t> columnsOf(int descriptor);

/// "vexmoor: …" as a line for stderr.
std::string complaint(const std::string& sentence);

/// Prints it.
void complain(const std::string& sentence);

/// The command line's way of asking and telling. Failures are left to the command, which knows them
/// from its result.
class TerminalDialogs : public Dialogs {
  public:
    explicit TerminalDialogs(bool assumeYes) : m_assumeYes(assumeYes) {}

    /// Asks on the terminal and waits; without one only --yes confirms.
    Answer ask(const Question& question);
    void ask(const Question& question, std::function<void(const Answer&)> answered) override {
        answered(ask(question));
    }
    void report(const FailureReport&) override {}
    void beep() override {}

    /// Asks one line, "Feed notes.txt?", in the same way.
    bool confirms(const std::string& question);

    /// Whether a question could not be asked.
    [[nodiscard]] bool lackedTerminal() const { return m_lackedTerminal; }

  private:
    bool canAsk();

    bool m_assumeYes;
    bool m_lackedTerminal = false;
};

} // namespace vexmoor
