#pragma once

#include "ui/Permissions.h"

#include <QDBusConnection>
#include <QObject>

namespace vexmoor {

/// Tracks whether file managers report the focus on the accessibility bus. A program does so only
/// if the session's accessibility support was on when it started. Main thread.
class FocusReports : public QObject {
    Q_OBJECT

  public:
    explicit FocusReports(QDBusConnection session) : m_session(std::move(session)) {}

    [[nodiscard]] Permissions::FocusReports state() const { return m_state; }

    /// Called if a file manager was queried for its focus and has never reported one.
    void setMissing();

    /// Called when the key worked in a file manager; after turnOn() that is assumed to be the one
    /// that was queried.
    void keyWorked();

    /// Turns the session's accessibility support on. Running programs notice it when restarted.
    void turnOn();

  signals:
    /// Emitted if accessibility support could not be turned on. `reason` is the bus's error
    /// message.
    void turningOnFailed(const QString& reason);

  private:
    QDBusConnection m_session;
    Permissions::FocusReports m_state = Permissions::FocusReports::present;
};

} // namespace vexmoor
