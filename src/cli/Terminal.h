#pragma once

#include "base/Printable.h"
#include "intake/Ports.h"

#include <string>
#include <string_view>

namespace vexmoor {

/// Prints "vexmoor: …" to stderr.
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

    /// Whether a question could not be asked.
    [[nodiscard]] bool lackedTerminal() const { return m_lackedTerminal; }

  private:
    bool m_assumeYes;
    bool m_lackedTerminal = false;
};

} // namespace vexmoor
