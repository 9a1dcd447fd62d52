#pragma once

#include "app/Alerts.h"

#include "desktopbus/Updater.h"
#include "ui/UpdatePanel.h"

#include <QObject>

#include <memory>

namespace vexmoor {

/// "Check for Updates…": runs the check, shows a panel if it takes long, and reports the result.
/// Main thread.
class UpdateCommand : public QObject {
    Q_OBJECT

  public:
    /// How long a check runs before the panel opens; most end sooner.
    static constexpr std::chrono::milliseconds kDelay{250};

    /// Both must outlive it.
    UpdateCommand(Updater& updater, Alerts& alerts);
    ~UpdateCommand() override;

    void checkForUpdates();
    [[nodiscard]] bool isChecking() const { return m_updater.isChecking(); }

  signals:
    void checkingChanged(bool isChecking);

  private:
    void showPanel();

    Updater& m_updater;
    QTimer m_delay;
    std::unique_ptr<UpdatePanel> m_panel;
};

} // namespace vexmoor
