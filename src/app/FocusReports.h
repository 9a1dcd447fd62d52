#pragma once

#include "ui/Permissions.h"

#include <QDBusConnection>
#include <QObject>

namespace vexmoor {

/// Whether file managers report the focus on the accessibility bus: a program does so only if the
/// session's accessibility support was on when it started. Main thread.
class FocusReports : public QObject {
    Q_OBJECT

  public:
    explicit FocusReports(QDBusConnection session) : m_session(std::move(session)) {}

    [[nodiscard]] Permissions::FocusReports state() const { return m_state; }

    /// A file manager was asked for its focus and has never reported one.
    void setMissing();

    /// The key was taken in a file manager. After turnOn() that is taken for the one that was
    /// asked.
    void keyWorked();

    /// Turns the session's accessibility support on, for the programs that start from now on.
    void turnOn();

  signals:
    /// The session did not turn it on. `reason` is what the bus answered.
    void turningOnFailed(const QString& reason);

  private:
    QDBusConnection m_session;
    Permissions::FocusReports m_state = Permissions::FocusReports::present;
};

} // namespace vexmoor
