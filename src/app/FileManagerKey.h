#pragma once

#include "app/FocusReports.h"
#include "app/KeyOutlook.h"

#include "base/SerialQueue.h"
#include "dock/AccessibilityBus.h"
#include "finder/Automation.h"
#include "finder/FinderHotkey.h"
#include "finder/KeyCapture.h"
#include "intake/Ports.h"
#include "integration/KeyIntegration.h"
#include "progression/NotificationPort.h"

#include <QDBusConnection>
#include <QObject>

#include <memory>
#include <mutex>
#include <vector>

namespace vexmoor {

class Settings;

/// Ctrl+Backspace in file managers. If a file manager can bind the key to our menu command, that
/// accelerator is installed; otherwise the key is captured (X11 only). Both need the setting and
/// the user's consent. Main thread.
class FileManagerKey : public QObject {
    Q_OBJECT

  public:
    /// All must outlive it.
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

    /// Starts following the setting and the consent.
    void begin();

    /// True if this session allows capturing keys and querying the selection.
    [[nodiscard]] bool canCapture() const { return m_capture->isPossible(); }

    /// Returns how the key works, as last read; updated by lookAgain() and by every change.
    [[nodiscard]] KeyOutlook outlook() const;

    /// True if a file manager's menu had our entry when last read.
    [[nodiscard]] bool hasMenuEntry() const { return m_hasMenuEntry; }

    /// Starts reading the file managers' configuration again. Returns at once.
    void lookAgain() { updateAccelerators(); }

    UndoKey& undoKey() { return *m_hotkey; }
    Automation& automation() { return m_automation; }
    FocusReports& focusReports() { return m_focusReports; }

    /// Feeds the file manager's selection. Asks for consent first if it is missing.
    void feedSelection();

    /// Must be called when a file manager's menu command has fed items. Returns whether the key
    /// triggered it.
    bool fedByMenuCommand() { return m_hotkey->fedByMenuCommand(); }

    /// Reports that the selection cannot be read, and offers the settings.
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

    mutable std::mutex m_mutex;                    ///< guards m_states
    std::optional<std::vector<KeyState>> m_states; ///< of the installed file managers

    SerialQueue m_background;
    std::unique_ptr<KeyCapture> m_capture;
    std::unique_ptr<FinderHotkey> m_hotkey;
    std::vector<Subscription> m_subscriptions;
};

} // namespace vexmoor
