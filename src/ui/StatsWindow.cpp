#include "StatsWindow.h"

#include "StatsPoster.h"

#include "disposal/Ledger.h"
#include "disposal/Settings.h"
#include "progression/Progression.h"

namespace vexmoor {

StatsWindow::StatsWindow(Ledger& ledger, Settings& settings, Progression& progression, Clock clock,
                         const MakeFrameTimer& makeTimer)
    : m_ledger(ledger), m_progression(progression), m_clock(std::move(clock)),
      m_minute(makeTimer()), m_poster(new StatsPoster(makeTimer, this)) {
    setWindowTitle(tr("Vexmoor"));
    setCentralWidget(m_poster);
    connect(m_poster, &StatsPoster::testFlamesRequested, this, &StatsWindow::testFlamesRequested);
    const auto refreshed = [this](const auto&) { refresh(); };
    m_subscriptions.push_back(ledger.count.subscribe(refreshed));
    m_subscriptions.push_back(ledger.bytes.subscribe(refreshed));
    m_subscriptions.push_back(ledger.days.subscribe(refreshed));
    m_subscriptions.push_back(settings.mode.subscribe(
        [this](DisposeMode mode) { m_poster->setDissolving(mode == DisposeMode::dissolve); }));
    m_subscriptions.push_back(progression.subscribe([this](const Progress& progress) {
        m_poster->setSkin(Skin::named(progress.skin));
        refresh();
    }));
    resize(sizeHint());
}

void StatsWindow::refresh() {
    m_poster->setText(StatsText::of(m_ledger, m_progression.progress(), m_clock()));
}

void StatsWindow::showEvent(QShowEvent*) {
    refresh();
    m_minute->start(std::chrono::minutes(1), [this] { refresh(); });
}

void StatsWindow::hideEvent(QHideEvent*) {
    m_minute->stop();
}

} // namespace vexmoor
