#pragma once

#include "base/Date.h"
#include "base/Published.h"
#include "dock/FrameTimer.h"

#include <QMainWindow>

#include <vector>

namespace vexmoor {

class Ledger;
class Progression;
class Settings;
class StatsPoster;

/// The program's main window: what the cauldron consumed. It follows the stores at once, and the
/// calendar within a minute; hidden it does nothing. The owner gives it a menu bar and keeps its
/// place. Main thread.
class StatsWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// The stores must outlive the window.
    StatsWindow(Ledger& ledger, Settings& settings, Progression& progression, Clock clock,
                const MakeFrameTimer& makeTimer = std::make_unique<QtFrameTimer>);

  signals:
    void testFlamesRequested();

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void refresh();

    const Ledger& m_ledger;
    const Progression& m_progression;
    Clock m_clock;
    std::unique_ptr<FrameTimer> m_minute;
    StatsPoster* m_poster;
    std::vector<Subscription> m_subscriptions; ///< last, so that they end first
};

} // namespace vexmoor
