#include "StatsWiring.h"

#include "app/AccessibilitySettings.h"
#include "app/FileManagerKey.h"

#include "dock/Accessibility.h"
#include "intake/Intake.h"
#include "ui/SettingsTab.h"

namespace vexmoor {

std::unique_ptr<StatsWindow> StatsWiring::makeWindow() {
    auto window = std::make_unique<StatsWindow>(StatsView::Parts{
        .ledger = m_parts.ledger,
        .settings = m_parts.settings,
        .progression = m_parts.progression,
        .clock = &Date::now,
        .makeTimer = m_parts.makeTimer,
        .permissions = [this] { return permissions(); },
        .loadPicture =
            [this](const Sacrifice& item, BinnedPictures::Completion completion) {
                m_pictures.load(item, std::move(completion));
            },
        .findBinned =
            [this](const auto& matches, std::size_t most) {
                return m_parts.binnedItems.matching(matches, most);
            },
    });
    const StatsView& view = window->view();
    connect(&view, &StatsView::restoreRequested, this,
            [this](const std::vector<Sacrifice>& items) { m_parts.intake.restore(items); });
    connect(&view, &StatsView::deleteRequested, this, [this](const std::vector<Sacrifice>& items) {
        m_parts.intake.deleteImmediately(items);
    });
    connectSettings(view.settingsTab());
    return window;
}

Permissions StatsWiring::permissions() const {
    Permissions permissions;
    permissions.accessible = m_parts.accessibility.isTrusted();
    permissions.automation = m_parts.key.automation().status().get();
    permissions.focusReports = m_parts.key.focusReports().state();
    const KeyOutlook outlook = m_parts.key.outlook();
    permissions.keyIsPossible = outlook.way() != Onboarding::KeyWay::none;
    permissions.keyHints = outlook.hints();
    return permissions;
}

void StatsWiring::connectSettings(const SettingsTab& tab) {
    connect(&tab, &SettingsTab::accessibilitySettingsRequested, this,
            [this] { openAccessibilitySettings(m_parts.alerts); });
    // The consent is asked for once. After a denial, the button itself grants it.
    connect(&tab, &SettingsTab::automationRequested, this, [this] {
        Automation& automation = m_parts.key.automation();
        if (automation.status().get() == AutomationStatus::denied)
            automation.set(AutomationStatus::granted);
        else
            automation.request([](AutomationStatus) {});
    });
    connect(&tab, &SettingsTab::focusReportsRequested, &m_parts.key.focusReports(),
            &FocusReports::turnOn);
    connect(&tab, &SettingsTab::automationWithdrawn, this,
            [this] { m_parts.key.automation().set(AutomationStatus::denied); });
}

} // namespace vexmoor
