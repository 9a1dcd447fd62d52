#include "UpdateCommand.h"

#include "art/CauldronArt.h"

namespace vexmoor {

UpdateCommand::UpdateCommand(Updater& updater, Alerts& alerts) : m_updater(updater) {
    m_delay.setSingleShot(true);
    m_delay.setInterval(kDelay);
    connect(&m_delay, &QTimer::timeout, this, &UpdateCommand::showPanel);
    connect(&m_updater, &Updater::checkingChanged, this, [this](bool isChecking) {
        if (isChecking) {
            m_delay.start();
        } else {
            m_delay.stop();
            if (m_panel)
                m_panel.release()->deleteLater(); // the call may come from its own button
        }
        emit checkingChanged(isChecking);
    });
    connect(&m_updater, &Updater::finished, this, [&alerts](const UpdateCheck& check) {
        alerts.inform(tr("Check for Updates"), sentenceFor(check));
    });
}

UpdateCommand::~UpdateCommand() = default;

/// During a check, opens its panel.
void UpdateCommand::checkForUpdates() {
    if (isChecking())
        showPanel();
    else
        m_updater.checkForUpdates();
}

void UpdateCommand::showPanel() {
    if (!m_panel) {
        m_panel = std::make_unique<UpdatePanel>(CauldronArt::current());
        connect(m_panel.get(), &QDialog::rejected, &m_updater, &Updater::cancel);
    }
    m_panel->show();
    m_panel->raise();
    m_panel->activateWindow();
}

} // namespace vexmoor
