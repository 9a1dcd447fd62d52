#include "ShutdownDelay.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace vexmoor {
namespace {

const QString kLogin = QStringLiteral("org.freedesktop.login1");
const QString kLoginPath = QStringLiteral("/org/freedesktop/login1");
const QString kManager = QStringLiteral("org.freedesktop.login1.Manager");

} // namespace

ShutdownDelay::ShutdownDelay(const QDBusConnection& systemBus) : m_bus(systemBus) {
    m_bus.connect(kLogin, kLoginPath, kManager, QStringLiteral("PrepareForShutdown"), this,
                  SLOT(prepareForShutdown(bool)));
}

void ShutdownDelay::prepareForShutdown(bool begins) {
    if (begins)
        emit shutdownBegun();
}

void ShutdownDelay::setWorking(bool working) {
    if (working == m_isWorking)
        return;
    m_isWorking = working;
    if (working)
        inhibit();
    else
        m_lock = QDBusUnixFileDescriptor(); // closing it releases the delay
}

/// Asynchronous: if the work ends before the reply, no lock is needed.
void ShutdownDelay::inhibit() {
    if (!m_bus.isConnected())
        return;
    auto call =
        QDBusMessage::createMethodCall(kLogin, kLoginPath, kManager, QStringLiteral("Inhibit"));
    call << QStringLiteral("shutdown") << QStringLiteral("Vexmoor")
         << tr("Files are being fed to the cauldron") << QStringLiteral("delay");
    call.setAutoStartService(false);
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *watcher;
        watcher->deleteLater();
        if (m_isWorking && reply.isValid())
            m_lock = reply.value();
    });
}

} // namespace vexmoor
