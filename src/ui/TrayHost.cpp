#include "TrayHost.h"

#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace vexmoor {
namespace {

const QString kWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kPath = QStringLiteral("/StatusNotifierWatcher");

} // namespace

TrayHost::TrayHost(const QDBusConnection& session)
    : m_session(session), m_tray("_NET_SYSTEM_TRAY_S0") {
    const auto* const watcher = new QDBusServiceWatcher(
        kWatcher, m_session, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &TrayHost::askWatcher);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, &TrayHost::watcherGone);
    for (const char* const change :
         {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        m_session.connect(kWatcher, kPath, kWatcher, QLatin1String(change), this,
                          SLOT(askWatcher()));
    connect(&m_tray, &SelectionOwner::ownedChanged, this, &TrayHost::update);
    update();
    askWatcher();
}

/// Does not activate the watcher: an activated watcher would have no host.
void TrayHost::askWatcher() {
    QDBusMessage question = QDBusMessage::createMethodCall(
        kWatcher, kPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question.setArguments({kWatcher, QStringLiteral("IsStatusNotifierHostRegistered")});
    question.setAutoStartService(false);
    auto* const call = new QDBusPendingCallWatcher(m_session.asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        answered(call->reply());
    });
}

void TrayHost::answered(const QDBusMessage& answer) {
    m_hasHost = answer.type() == QDBusMessage::ReplyMessage &&
                answer.arguments().value(0).value<QDBusVariant>().variant().toBool();
    update();
}

void TrayHost::watcherGone() {
    m_hasHost = false;
    update();
}

void TrayHost::update() {
    const bool available = m_hasHost || m_tray.isOwned();
    if (m_available == available)
        return;
    m_available = available;
    emit availableChanged(available);
}

} // namespace vexmoor
