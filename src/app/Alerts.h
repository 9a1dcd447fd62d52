#pragma once

#include "dock/FrameTimer.h"
#include "intake/Ports.h"

#include <QMessageBox>
#include <QObject>

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor {

/// Shows questions and reports as alerts, one at a time in the order of the calls. An alert opens
/// on top, on the current workspace, independent of the program's window. It blocks nothing:
/// dropped items are still accepted. Main thread.
class Alerts : public QObject, public Dialogs {
    Q_OBJECT

  public:
    /// How long a question must have had the focus before its buttons react: keys that are pressed
    /// when it opens were meant for another window.
    static constexpr std::chrono::milliseconds kGuard{500};

    /// If more alerts than this wait, further reports share one alert, which counts them and lists
    /// the first; all of them are written to stderr.
    static constexpr std::size_t kMostTurns = 16;

    explicit Alerts(MakeFrameTimer makeTimer = [] { return std::make_unique<QtFrameTimer>(); })
        : m_makeTimer(std::move(makeTimer)) {}

    /// Calls `answered` when the user has closed the question. Returns at once.
    void ask(const Question& question, std::function<void(const Answer&)> answered) override;

    /// Beeps when the alert opens. Returns at once.
    void report(const FailureReport& report) override;

    void beep() override;

    /// Shows the result of a user's request, without a beep. Returns at once.
    void inform(const QString& message, const QString& informative);

    /// Closes all alerts and answers all questions with no, later ones too. Later reports, and
    /// those not shown yet, go to `instead`.
    void close(std::function<void(const FailureReport&)> instead);

  private:
    struct Turn {
        std::unique_ptr<QMessageBox> box;
        std::optional<FailureReport> report;                ///< if it is a report
        std::function<void(const QMessageBox&)> answered{}; ///< if it is a question
    };

    /// The reports that share one alert.
    struct Rest {
        std::size_t count = 0;
        std::vector<std::string> lines; ///< for the first reports
    };

    void await(Turn turn);
    void addToRest(const FailureReport& report);
    [[nodiscard]] FailureReport takeRest();
    void showFirst();
    void firstIsOver();

    MakeFrameTimer m_makeTimer;
    std::deque<Turn> m_turns; ///< the first one is shown
    Rest m_rest;
    std::function<void(const FailureReport&)> m_instead;
};

} // namespace vexmoor
