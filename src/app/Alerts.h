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

/// Asks and tells in alerts, one at a time in the order in which they came. An alert comes on top
/// on the workspace that the user works on, wherever the program's window is, and blocks nothing:
/// what is dropped meanwhile is taken. Main thread.
class Alerts : public QObject, public Dialogs {
    Q_OBJECT

  public:
    /// How long a question has had the focus before it can be answered: what is typed when it comes
    /// up was meant for another window.
    static constexpr std::chrono::milliseconds kGuard{500};

    /// Where more alerts wait, further reports share one alert, which counts them and lists the
    /// first; all of these are on stderr.
    static constexpr std::size_t kMostTurns = 16;

    explicit Alerts(MakeFrameTimer makeTimer = [] { return std::make_unique<QtFrameTimer>(); })
        : m_makeTimer(std::move(makeTimer)) {}

    /// Answers when its turn came and the user closed it.
    void ask(const Question& question, std::function<void(const Answer&)> answered) override;

    /// Beeps when its turn comes; does not wait.
    void report(const FailureReport& report) override;

    void beep() override;

    /// Says something that the user asked to know; does not wait.
    void tell(const QString& message, const QString& informative);

    /// Takes all alerts off the screen: questions are answered with no. From now on nothing is
    /// asked, and what there is to report, or was not on the screen yet, goes to `instead`.
    void close(std::function<void(const FailureReport&)> instead);

  private:
    struct Turn {
        std::unique_ptr<QMessageBox> box;
        std::optional<FailureReport> report;                ///< of an alert that tells
        std::function<void(const QMessageBox&)> answered{}; ///< of one that asks
    };

    /// Reports that share one alert.
    struct Rest {
        std::size_t count = 0;
        std::vector<std::string> lines; ///< of the first
    };

    void await(Turn turn);
    void addToRest(const FailureReport& report);
    [[nodiscard]] FailureReport takeRest();
    void showFirst();
    void firstIsOver();

    MakeFrameTimer m_makeTimer;
    std::deque<Turn> m_turns; ///< the first is on the screen
    Rest m_rest;
    std::function<void(const FailureReport&)> m_instead;
};

} // namespace vexmoor
