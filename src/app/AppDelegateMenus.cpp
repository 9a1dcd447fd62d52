#include "AppDelegate.h"

#include "ui/AboutPanel.h"

// AppDelegate: the actions of the menu entries.

namespace vexmoor {

MenuContents::Parts AppDelegate::menuParts() {
    return {.ledger = m_ledger,
            .settings = m_settings,
            .progression = m_progression,
            .undoStack = m_undoStack,
            .clock = &Date::now,
            .canPutBack = [this] { return m_binnedItems.hasAny(); },
            .canFeedSelection = [this] { return m_fileManagerKey.canCapture(); },
            .isCheckingForUpdates = [this] { return m_updateCommand.isChecking(); }};
}

void AppDelegate::wireMenuBar() {
    const MenuContents& menu = m_menuBar.contents();
    connect(&menu, &MenuContents::feedSelectionChosen, &m_fileManagerKey,
            &FileManagerKey::feedSelection);
    connect(&menu, &MenuContents::putBackChosen, this, &AppDelegate::putBackLast);
    connect(&menu, &MenuContents::testFlamesChosen, this, &AppDelegate::testFlames);
    connect(&menu, &MenuContents::binChosen, &m_binOpener, &BinOpener::open);
    connect(&menu, &MenuContents::restoreChosen, this,
            [this](const Sacrifice& sacrifice) { m_intake.restore({sacrifice}); });
    connect(&menu, &MenuContents::statsChosen, this, &AppDelegate::showStats);
    connect(&menu, &MenuContents::updatesChosen, &m_updateCommand, &UpdateCommand::checkForUpdates);
    connect(&menu, &MenuContents::quitChosen, this, &AppDelegate::quit);
    connect(&m_binOpener, &BinOpener::failed, this, [this](const QString& problem) {
        m_alerts.report(
            {tr("The Bin couldn't be opened").toStdString(), problem.toStdString(), {}});
    });
}

void AppDelegate::wireMainMenu() {
    connect(&m_mainMenu, &MainMenu::aboutChosen, this, &AppDelegate::showAboutPanel);
    connect(&m_mainMenu, &MainMenu::updatesChosen, &m_updateCommand,
            &UpdateCommand::checkForUpdates);
    connect(&m_updateCommand, &UpdateCommand::checkingChanged, &m_mainMenu,
            &MainMenu::setCheckingForUpdates);
    connect(&m_mainMenu, &MainMenu::statsChosen, this, &AppDelegate::showStats);
    connect(&m_mainMenu, &MainMenu::onboardingChosen, this, &AppDelegate::showOnboarding);
    connect(&m_mainMenu, &MainMenu::quitChosen, this, &AppDelegate::quit);
    connect(&m_mainMenu, &MainMenu::undoChosen, this, &AppDelegate::undo);
    // Only the menu bar of the stats window has these, so that window exists.
    connect(&m_mainMenu, &MainMenu::unlockAllChosen, this, [this] { m_progression.unlockAll(); });
    connect(&m_mainMenu, &MainMenu::resetChosen, this, [this] { m_progression.reset(); });
}

void AppDelegate::showAboutPanel() {
    m_mainMenu.addTo(showAbout(m_statsWindow.get()));
}

} // namespace vexmoor
