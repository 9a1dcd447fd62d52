#pragma once

#include "intake/Ports.h"

#include <string>
#include <vector>

namespace vexmoor {

/// For a command of a file manager's menu, whose terminal, if it has one, nobody reads: nothing can
/// be asked, and failures become notifications of the desktop.
class MenuDialogs : public Dialogs {
  public:
    void ask(const Question&, std::function<void(const Answer&)> answered) override {
        m_lackedWindow = true;
        answered({});
    }
    void report(const FailureReport& report) override { m_reports.push_back(report); }
    void beep() override {}

    /// Whether a question could not be asked.
    [[nodiscard]] bool lackedWindow() const { return m_lackedWindow; }

    /// Shows what was reported. Where the desktop has no notifications, stderr has it all the same.
    void show() const;

  private:
    bool m_lackedWindow = false;
    std::vector<FailureReport> m_reports;
};

} // namespace vexmoor
