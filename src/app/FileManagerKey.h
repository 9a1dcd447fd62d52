#pragma once

#include "app/FocusReports.h"

#include "base/SerialQueue.h"
#include "dock/AccessibilityBus.h"
#include "finder/Automation.h"
#include "finder/FinderHotkey.h"
#include "finder/KeyCapture.h"
#include "intake/Ports.h"
#include "integration/KeyIntegration.h"
#include "progression/NotificationPort.h"
#include "ui/Onboarding.h"

#include <QDBusConnection>
#include <QObject>

#include <memory>
#include <mutex>
#include <vector>

namespace vexmoor {

class Settings;

/// Ctrl+Backspace in file managers, both ways: where a file manager can bind the key to our menu
/// command that is installed, elsewhere the key is captured (X11 only). The setting and the user's
/// consent decide. Main thread.
class FileManagerKey : public QObject {
    Q_OBJECT

  public:
    /// What it works with; everything outlives it.
    struct Parts {
        UserDefaults& defaults;
        Settings& settings;
        Dialogs& dialogs;
        NotificationPort& notifications;
        Executor& main;
        const AccessibilityBus& accessibility;
        QDBusConnection session;
        IntegrationContext integration;
    };

    explicit FileManagerKey(Parts parts);
    ~FileManagerKey() override;

    /// Follows the setting and the consent from now on.
    void begin();

    /// Whether this session lets programs capture keys and ask for the selection.
    [[nodiscard]] bool canCapture() const { return m_capture->isPossible(); }

    /// How the key gets here as far as is known; follows lookAgain() and every change.
    [[nodiscard]] Onboarding::KeyWay way() const;

    /// Whether a file manager's menu has our entry, as far as is known.
    [[nodiscard]] bool hasMenuEntry() const { return m_hasMenuEntry; }

    /// Looks at the file managers' configuration again, without waiting for it.
    void lookAgain() { updateAccelerators(); }

    /// How the file managers that are installed have the key; empty until that is known.
    [[nodiscard]] std::vector<KeyState> states() const;

    UndoKey& undoKey() { return *m_hotkey; }
    Automation& automation() { return m_automation; }
    FocusReports& focusReports() { return m_focusReports; }

    /// Feeds what is selected in the file manager; asks for the consent if it has to.
    void feedSelection();

    /// Reports that a file manager's menu command fed items. \return whether the key caused it.
    bool fedByMenuCommand() { return m_hotkey->fedByMenuCommand(); }

    /// Says that the selection cannot be seen, and offers the settings.
    void explainAutomation();

  signals:
    void selectionFed(const vexmoor::Selection& selection, bool byKey);
    void undoRequested();
    void settingsRequested();

  private:
    [[nodiscard]] KeyCapture::Parts captureParts();
    [[nodiscard]] FinderHotkey::Parts hotkeyParts();
    void apply();
    void capture();
    void updateAccelerators();
    void take(std::vector<KeyState> states, bool hasMenuEntry);
    void notify(const std::string& identifier, const QString& title, const QString& body);
    void notifyFromAnyThread(const std::string& identifier, const QString& title,
                             const QString& body);
    /// Called on the tap's thread.
    [[nodiscard]] bool bindsKeyItself(const FileManager& manager, std::optional<pid_t> process);

    Parts m_parts;
    Automation m_automation;
    FocusReports m_focusReports;

    bool m_hasMenuEntry = false;
    bool m_statesAreKnown = false;

    mutable std::mutex m_mutex;     ///< guards what follows
    std::vector<KeyState> m_states; ///< of the file managers that are installed

    SerialQueue m_background;
    std::unique_ptr<KeyCapture> m_capture;
    std::unique_ptr<FinderHotkey> m_hotkey;
    std::vector<Subscription> m_subscriptions;
};

} // namespace vexmoor
