#include "Walkthrough.h"

#include "app/AccessibilitySettings.h"
#include "app/FileManagerKey.h"

#include "disposal/Settings.h"
#include "dock/AccessibilityBus.h"
#include "progression/Progression.h"
#include "skins/Skin.h"

#include <QGuiApplication>
#include <QScreen>

namespace vexmoor {

Walkthrough::Walkthrough(Parts parts) : m_parts(std::move(parts)) {}

Walkthrough::~Walkthrough() = default;

bool Walkthrough::comesFirst() const {
    return m_view || (!m_wasShown && !m_parts.defaults.boolean(kFinishedKey).value_or(false));
}

QWidget& Walkthrough::show() {
    m_wasShown = true;
    if (!m_view) {
        m_parts.key.lookAgain();
        m_view = std::make_unique<OnboardingView>(ports(), Skin::iron(), m_parts.makeTimer);
        m_skin = m_parts.progression.subscribe(
            [this](const Progress& progress) { m_view->setSkin(Skin::named(progress.skin)); });
        connect(m_view.get(), &QDialog::finished, this, &Walkthrough::dropWindow);
        if (const QScreen* const screen = QGuiApplication::primaryScreen())
            m_view->move(screen->availableGeometry().center() - m_view->rect().center());
    }
    m_view->show();
    m_view->setWindowState(m_view->windowState() & ~Qt::WindowMinimized);
    m_view->raise();
    m_view->activateWindow();
    return *m_view;
}

Onboarding::Ports Walkthrough::ports() {
    return {
        .facts = [this] { return facts(); },
        .askForAutomation =
            [this](std::function<void()> answered) {
                m_parts.key.automation().request(
                    [answered = std::move(answered)](AutomationStatus) { answered(); });
            },
        .foldersWereAsked =
            [this] { return m_parts.defaults.boolean(FolderAccess::kAskedKey).value_or(false); },
        .probeFolders =
            [this](std::function<void(const FolderAccess::Readable&)> completion) {
                if (!m_background)
                    m_background.emplace();
                FolderAccess::probe(m_parts.defaults, *m_background, m_parts.main,
                                    std::move(completion));
            },
        .openAccessibilitySettings = [this] { openAccessibilitySettings(m_parts.alerts); },
        .openAutomationSettings = [this] { emit settingsRequested(); },
        .openFolderSettings = FolderAccess::openSettings,
        .finish = [this] { finish(); }};
}

Onboarding::Facts Walkthrough::facts() const {
    return {.accessible = m_parts.accessibility.answers(),
            .automation = m_parts.key.automation().status().get(),
            .key = m_parts.key.outlook().way(),
            .keyIsOn = m_parts.settings.captureFinderDelete.get(),
            .hasMenuEntry = m_parts.key.hasMenuEntry()};
}

void Walkthrough::finish() {
    m_parts.defaults.assign(kFinishedKey, true);
    m_view->close();
    emit finished();
}

/// Deletes the window later, as the call comes from its own signal.
void Walkthrough::dropWindow() {
    m_skin = {};
    if (m_view)
        m_view.release()->deleteLater();
}

} // namespace vexmoor
