#include "StatsView.h"

#include "Accent.h"
#include "AchievementsTab.h"
#include "Column.h"
#include "DayBar.h"
#include "Glow.h"
#include "Picked.h"
#include "SegmentedBar.h"
#include "SettingsTab.h"
#include "SkinsTab.h"
#include "StatsHeader.h"
#include "TextStyle.h"
#include "WeekChart.h"

#include "disposal/Ledger.h"
#include "disposal/Settings.h"
#include "progression/Progression.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QShortcut>
#include <QShowEvent>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <array>

namespace vexmoor {

StatsView::StatsView(Parts parts, QWidget* parent)
    : QWidget(parent), m_parts(std::move(parts)), m_minute(m_parts.makeTimer()),
      m_second(m_parts.makeTimer()), m_skin(Skin::iron()),
      m_header(new StatsHeader(m_parts.makeTimer, this)), m_chart(new WeekChart(this)),
      m_tabs(new SegmentedBar(this)), m_pages(new QStackedWidget(this)),
      m_history(new HistoryTab({m_parts.loadPicture, m_parts.findBinned, m_parts.clock}, this)),
      m_achievements(new AchievementsTab(m_parts.progression, this)),
      m_skins(new SkinsTab(m_parts.progression, this)),
      m_settings(new SettingsTab(m_parts.settings, this)) {
    layOut();
    connectTabs();
    addShortcuts();
    subscribe();
}

void StatsView::layOut() {
    const std::array<std::pair<QString, QWidget*>, 4> pages{{{tr("History"), m_history},
                                                             {tr("Achievements"), m_achievements},
                                                             {tr("Skins"), m_skins},
                                                             {tr("Settings"), m_settings}}};
    for (const auto& [title, page] : pages) {
        m_tabs->addTab(title);
        m_pages->addWidget(page);
    }
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    auto* const sheet = new QWidget(this);
    sheet->setMaximumWidth(kWidestColumn + 2 * DayBar::kRingRoom);
    auto* const top = new QVBoxLayout(sheet);
    top->setContentsMargins(0, 12, 0, 12);
    top->setSpacing(12);
    const auto addInset = [top](QWidget* widget) {
        auto* const row = new QHBoxLayout;
        row->setContentsMargins(DayBar::kRingRoom, 0, DayBar::kRingRoom, 0);
        row->addWidget(widget);
        top->addLayout(row);
    };
    addInset(m_header);
    top->addWidget(m_chart); // the rings of its bars extend into the margins
    addInset(m_tabs);
    auto* const row = new QHBoxLayout;
    constexpr int kSide = kColumnMargin - DayBar::kRingRoom;
    row->setContentsMargins(kSide, 0, kSide, 0);
    row->addStretch();
    row->addWidget(sheet, 1);
    row->addStretch();
    column->addLayout(row);
    column->addWidget(m_pages, 1);
}

void StatsView::connectTabs() {
    connect(m_tabs, &SegmentedBar::currentChanged, m_pages, &QStackedWidget::setCurrentIndex);
    connect(m_header, &StatsHeader::settingsRequested, this, [this] { setTab(Tab::settings); });
    connect(m_history, &HistoryTab::restoreRequested, this, &StatsView::restoreRequested);
    connect(m_history, &HistoryTab::deleteRequested, this, &StatsView::deleteRequested);
    connect(m_history, &HistoryTab::testFlamesRequested, this, &StatsView::testFlamesRequested);
    connect(m_history, &HistoryTab::restorePickedRequested, this,
            [this] { emit restoreRequested(restorable(m_history->picked())); });
    connect(m_history, &HistoryTab::deletePickedRequested, this,
            [this] { emit deleteRequested(deleteNow(m_history->picked())); });
}

void StatsView::addShortcuts() {
    const auto add = [this](const QKeySequence& keys, auto act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    const int count = m_tabs->count();
    for (int i = 0; i < count; ++i)
        add(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + i)),
            [this, i] { m_tabs->setCurrentIndex(i); });
    add(QKeySequence(Qt::CTRL | Qt::Key_Tab),
        [this, count] { m_tabs->setCurrentIndex((m_tabs->currentIndex() + 1) % count); });
    add(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab),
        [this, count] { m_tabs->setCurrentIndex((m_tabs->currentIndex() + count - 1) % count); });
    add(QKeySequence(QKeySequence::Find), [this] {
        setTab(Tab::history);
        m_history->openFilter();
    });
}

void StatsView::subscribe() {
    const auto refreshed = [this](const auto&) { refresh(); };
    m_subscriptions.push_back(m_parts.ledger.count.subscribe(refreshed));
    m_subscriptions.push_back(m_parts.ledger.bytes.subscribe(refreshed));
    m_subscriptions.push_back(m_parts.ledger.days.subscribe(refreshed));
    m_subscriptions.push_back(m_parts.ledger.recent.subscribe(refreshed));
    m_subscriptions.push_back(m_parts.settings.mode.subscribe(refreshed));
    m_subscriptions.push_back(m_parts.progression.subscribe(refreshed));
}

/// Repaints only what changed.
void StatsView::refresh(bool grows) {
    if (!isVisible())
        return; // showEvent() refreshes everything
    const Progress& progress = m_parts.progression.progress();
    if (const Skin skin = Skin::named(progress.skin); skin.id != m_skin.id)
        setSkin(skin);
    m_header->setText(StatsText::of(m_parts.ledger, progress));
    m_header->setDissolving(m_parts.settings.mode.get() == DisposeMode::dissolve);
    m_chart->setWeek(m_parts.ledger.week(m_parts.clock()), grows);
    m_history->setRecent(m_parts.ledger.recent.get());
}

void StatsView::setSkin(const Skin& skin) {
    m_skin = skin;
    m_header->setSkin(skin);
    m_chart->setSkin(skin);
    m_tabs->setSkin(skin);
    m_history->setSkin(skin);
    m_achievements->setSkin(skin);
    m_skins->setSkin(skin);
    m_settings->setSkin(skin);
    update();
}

void StatsView::readPermissions() {
    if (m_parts.permissions)
        m_settings->setPermissions(m_parts.permissions());
}

StatsView::Tab StatsView::tab() const {
    return static_cast<Tab>(m_tabs->currentIndex());
}

void StatsView::setTab(Tab tab) {
    m_tabs->setCurrentIndex(static_cast<int>(tab));
}

std::vector<Sacrifice> StatsView::restorable(const std::set<Uuid>& picked) const {
    return pickedInBin(m_history->shown(), picked);
}

std::vector<Sacrifice> StatsView::deleteNow(const std::set<Uuid>& picked) const {
    return pickedInBin(m_history->shown(), picked);
}

QSize StatsView::minimumSizeHint() const {
    return QWidget::minimumSizeHint().expandedTo({360, 520});
}

void StatsView::startAgain() {
    setTab(Tab::history);
    m_history->startAgain();
    m_tabs->setFocus(Qt::OtherFocusReason); // in case the list is empty
    m_history->takeFocus();
}

void StatsView::showEvent(QShowEvent* event) {
    setSkin(Skin::named(m_parts.progression.progress().skin));
    refresh(false);
    if (!event->spontaneous()) // not after being minimised
        startAgain();
    readPermissions();
    m_minute->start(std::chrono::minutes(1), [this] {
        refresh();
        m_history->refresh();
    });
    m_second->start(std::chrono::seconds(1), [this] { readPermissions(); });
}

void StatsView::hideEvent(QHideEvent*) {
    m_minute->stop();
    m_second->stop();
}

void StatsView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor ground = groundOf(palette());
    painter.fillRect(rect(), ground);
    paintGlow(painter,
              QRect(m_header->mapTo(this, m_header->pot().topLeft()), m_header->pot().size()),
              Accent::of(m_skin, ground).glow, ground);
    painter.fillRect(QRect(0, m_pages->y() - 1, width(), 1), hairline(palette()));
}

} // namespace vexmoor
