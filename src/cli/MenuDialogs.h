#pragma once

#include "intake/Ports.h"

#include <string>
#include <vector>

namespace vexmoor {

/// Dialogs for a command from a file manager's menu, which has no visible terminal: refuses
/// questions and shows failures as desktop notifications.
class MenuDialogs : public Dialogs {
  public:
    void ask(const Question&, std::function<void(const Answer&)> answered) override {
        m_lackedWindow = true;
        answered({});
    }
    void report(const FailureReport& report) override { m_reports.push_back(report); }
    void beep() override {}

    /// True if a question could not be asked.
    [[nodiscard]] bool lackedWindow() const { return m_lackedWindow; }

    /// Shows the reported failures. Falls back to stderr if the desktop has no notification
    /// service.
    void show() const;

  private:
    bool m_lackedWindow = false;
    std::vector<FailureReport> m_reports;
};

} // namespace vexmoor
