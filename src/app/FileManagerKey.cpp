#include "FileManagerKey.h"

#include "base/Text.h"
#include "disposal/DisposalError.h"
#include "disposal/Settings.h"
#include "platform/Processes.h"

#include <QApplication>

#include <algorithm>
#include <utility>

namespace vexmoor {

FileManagerKey::FileManagerKey(Parts parts)
    : m_parts(std::move(parts)), m_automation(m_parts.defaults, m_parts.dialogs),
      m_focusReports(m_parts.session), m_capture(KeyCapture::forSession(captureParts())),
      m_hotkey(std::make_unique<FinderHotkey>(hotkeyParts())) {
    m_hotkey->onTrigger = [this](const Selection& selection) {
        m_focusReports.keyWorked();
        emit selectionFed(selection, true);
    };
    m_hotkey->onAutomationDenied = [this] { explainAutomation(); };
    m_hotkey->onUndo = [this] { emit undoRequested(); };
}

FileManagerKey::~FileManagerKey() = default;

KeyCapture::Parts FileManagerKey::captureParts() {
    return {.session = m_parts.session,
            .main = m_parts.main,
            .automation = m_automation,
            .bindsKeyItself =
                [this](const FileManager& manager, std::optional<pid_t> process) {
                    return bindsKeyItself(manager, process);
                },
            .keyIsHeld =
                [this] {
                    notifyFromAnyThread(
                        "key-held", tr("Another program uses Ctrl+Backspace"),
                        tr("Files can't be fed by that key until it releases the key."));
                },
            .programIsInvisible =
                [this] {
                    m_parts.main.post([this] { m_focusReports.setMissing(); });
                    notifyFromAnyThread(
                        "key-focus", tr("Ctrl+Backspace doesn't work in this file manager"),
                        tr("It was started without accessibility support, so Vexmoor can't know "
                           "whether you are typing. Start it again, or use its menu."));
                }};
}

FinderHotkey::Parts FileManagerKey::hotkeyParts() {
    return {.tap = m_capture->tap(),
            .workspace = m_capture->workspace(),
            .focus = m_capture->focus(),
            .selection = m_capture->selection(),
            .main = m_parts.main,
            .retry = std::make_unique<QtFrameTimer>(),
            .isTrusted = [this] { return m_parts.accessibility.answers(); },
            .beep = [this] { m_parts.dialogs.beep(); }};
}

void FileManagerKey::begin() {
    m_subscriptions.push_back(
        m_parts.settings.captureFinderDelete.subscribe([this](bool) { apply(); }));
    m_subscriptions.push_back(m_automation.subscribe([this](AutomationStatus) { apply(); }));
    connect(&m_focusReports, &FocusReports::turningOnFailed, this, [this](const QString& reason) {
        notify("key-support", tr("Accessibility support couldn't be turned on"), reason);
    });
    // Retry immediately instead of at the next interval.
    connect(&m_parts.accessibility, &AccessibilityBus::answersChanged, this, [this] { capture(); });
}

void FileManagerKey::apply() {
    if (m_subscriptions.empty())
        return; // during construction; the second subscription calls again
    capture();
    updateAccelerators();
}

void FileManagerKey::capture() {
    if (canCapture() && m_parts.settings.captureFinderDelete.get())
        m_hotkey->start();
    else
        m_hotkey->stop();
}

/// Until the user has answered, keeps an accelerator installed by `vexmoor integrate`.
void FileManagerKey::updateAccelerators() {
    const auto consent = m_automation.status().get();
    const bool captures = m_parts.settings.captureFinderDelete.get();
    const bool installs = captures && consent == AutomationStatus::granted;
    const bool removes = !captures || consent == AutomationStatus::denied;
    m_background.post([this, installs, removes, context = m_parts.integration] {
        const KeyIntegration keys(context);
        auto states = installs ? keys.install() : removes ? keys.remove() : keys.status();
        const bool hasMenuEntry = keys.hasMenuEntry();
        m_parts.main.post([this, hasMenuEntry, states = std::move(states)]() mutable {
            take(std::move(states), hasMenuEntry);
        });
    });
}

void FileManagerKey::take(std::vector<KeyState> states, bool hasMenuEntry) {
    m_hasMenuEntry = hasMenuEntry;
    for (const auto& state : states)
        if (state.error)
            notify("key-" + std::string(state.manager->id),
                   tr("The key of %1 couldn't be changed")
                       .arg(QString::fromUtf8(state.manager->title)),
                   QString::fromStdString(describe(*state.error)));
    {
        const std::lock_guard lock(m_mutex);
        m_states = std::move(states);
    }
    m_capture->refresh();
}

KeyOutlook FileManagerKey::outlook() const {
    KeyOutlook outlook{canCapture(), std::nullopt};
    {
        const std::lock_guard lock(m_mutex);
        outlook.states = m_states;
    }
    // File managers may have been restarted since the states were read.
    if (outlook.states)
        for (KeyState& state : *outlook.states)
            state.waitsForRestart = state.waitsForRestart && needsRestart(state);
    return outlook;
}

bool FileManagerKey::bindsKeyItself(const FileManager& manager, std::optional<pid_t> process) {
    const std::lock_guard lock(m_mutex);
    if (!m_states)
        return false;
    const auto state = std::ranges::find(*m_states, &manager, &KeyState::manager);
    if (state == m_states->end())
        return false;
    if (state->status == AcceleratorStatus::taken)
        return true;
    const auto running = process ? runningProcess(*process) : std::nullopt;
    return state->status == AcceleratorStatus::installed && running &&
           state->validity.isEffectiveFor(running->started);
}

void FileManagerKey::feedSelection() {
    m_capture->selection().query([this](const SelectionResult& result) {
        const auto* const selection = std::get_if<Selection>(&result);
        if (selection != nullptr && *selection != Selection())
            emit selectionFed(*selection, false);
        else if (result == SelectionResult(SelectionError::notPermitted))
            explainAutomation();
        else
            m_parts.dialogs.beep();
    });
}

void FileManagerKey::explainAutomation() {
    m_parts.dialogs.ask(
        {text("Vexmoor can't see what's selected in Finder"),
         text("To send ⌘⌫ to the cauldron, allow Vexmoor to control Finder under System Settings > "
              "Privacy & Security > Automation. Or turn off \"%1\" in the Vexmoor window.",
              {text("⌘⌫ in Finder feeds the cauldron")}),
         text("Open Settings"),
         text("Not Now"),
         {}},
        [this](const Answer& answer) {
            if (answer.confirmed)
                emit settingsRequested();
        });
}

void FileManagerKey::notify(const std::string& identifier, const QString& title,
                            const QString& body) {
    m_parts.notifications.post({identifier, title.toStdString(), body.toStdString()});
}

void FileManagerKey::notifyFromAnyThread(const std::string& identifier, const QString& title,
                                         const QString& body) {
    m_parts.main.post([=, this] { notify(identifier, title, body); });
}

} // namespace vexmoor
