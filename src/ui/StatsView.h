#pragma once

#include "HistoryTab.h"
#include "Permissions.h"

#include "base/Published.h"
#include "dock/FrameTimer.h"

#include <QWidget>

#include <functional>
#include <vector>

class QStackedWidget;

namespace vexmoor {

class AchievementsTab;
class Ledger;
class Progression;
class SegmentedBar;
class Settings;
class SettingsTab;
class SkinsTab;
class StatsHeader;
class WeekChart;
struct Progress;

/// The contents of the main window: totals, week chart and four tabs. While visible, follows the
/// stores immediately, the calendar within a minute and the permissions within a second; hidden, it
/// is idle. When shown again it starts at the history without selection. Main thread.
class StatsView : public QWidget {
    Q_OBJECT

  public:
    enum class Tab { history, achievements, skins, settings };

    /// The view's dependencies; all must outlive it.
    struct Parts {
        Ledger& ledger;
        Settings& settings;
        Progression& progression;
        Clock clock;
        MakeFrameTimer makeTimer = std::make_unique<QtFrameTimer>;
        std::function<Permissions()> permissions{}; ///< returns the current permissions
        LoadPicture loadPicture{};
        FindBinned findBinned{};
    };

    explicit StatsView(Parts parts, QWidget* parent = nullptr);

    [[nodiscard]] const Skin& skin() const { return m_skin; }

    /// Returns the settings tab, for the owner to connect its signals.
    [[nodiscard]] SettingsTab& settingsTab() const { return *m_settings; }

    [[nodiscard]] Tab tab() const;
    void setTab(Tab tab);

    /// Returns the listed items that are picked and can be put back, newest first.
    [[nodiscard]] std::vector<Sacrifice> restorable(const std::set<Uuid>& picked) const;
    /// Returns those that are picked and can be deleted from the Bin, newest first.
    [[nodiscard]] std::vector<Sacrifice> deleteNow(const std::set<Uuid>& picked) const;

    [[nodiscard]] QSize sizeHint() const override { return {360, 760}; }
    [[nodiscard]] QSize minimumSizeHint() const override;

  signals:
    void restoreRequested(const std::vector<vexmoor::Sacrifice>& items);
    void deleteRequested(const std::vector<vexmoor::Sacrifice>& items);
    void testFlamesRequested();

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void layOut();
    void connectTabs();
    void addShortcuts();
    void subscribe();
    void refresh(bool grows = true);
    void setSkin(const Skin& skin);
    void readPermissions();
    void startAgain();

    Parts m_parts;
    std::unique_ptr<FrameTimer> m_minute;
    std::unique_ptr<FrameTimer> m_second;
    Skin m_skin;
    StatsHeader* m_header;
    WeekChart* m_chart;
    SegmentedBar* m_tabs;
    QStackedWidget* m_pages;
    HistoryTab* m_history;
    AchievementsTab* m_achievements;
    SkinsTab* m_skins;
    SettingsTab* m_settings;
    std::vector<Subscription> m_subscriptions; ///< last member, so that they end first
};

} // namespace vexmoor
