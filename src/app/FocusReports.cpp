#include "FocusReports.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace vexmoor {

void FocusReports::setMissing() {
    // Running programs report nothing until they are restarted.
    if (m_state == Permissions::FocusReports::present)
        m_state = Permissions::FocusReports::missing;
}

void FocusReports::keyWorked() {
    if (m_state == Permissions::FocusReports::afterRestart)
        m_state = Permissions::FocusReports::present;
}

void FocusReports::turnOn() {
    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Set"));
    message << QStringLiteral("org.a11y.Status") << QStringLiteral("IsEnabled")
            << QVariant::fromValue(QDBusVariant(true));
    auto* const call = new QDBusPendingCallWatcher(m_session.asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        const QDBusPendingReply<> reply = *call;
        if (reply.isError())
            emit turningOnFailed(reply.error().message());
        else
            m_state = Permissions::FocusReports::afterRestart;
    });
}

} // namespace vexmoor
