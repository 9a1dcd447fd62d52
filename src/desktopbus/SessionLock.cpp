#include "SessionLock.h"

#include "AsyncCall.h"

#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <algorithm>

namespace vexmoor {
namespace {

/// Each service's interface has the service's name, and `GetActive` is at the path of that name.
/// `ActiveChanged` is also sent from other paths.
const QStringList kScreenSavers = {
    QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("org.gnome.ScreenSaver"),
    QStringLiteral("org.mate.ScreenSaver"),        QStringLiteral("org.cinnamon.ScreenSaver"),
    QStringLiteral("org.xfce.ScreenSaver"),
};

const QString kLogin = QStringLiteral("org.freedesktop.login1");
const QString kLoginPath = QStringLiteral("/org/freedesktop/login1");
const QString kLoginSession = QStringLiteral("org.freedesktop.login1.Session");
const QString kLockedHint = QStringLiteral("LockedHint");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");

QString pathOf(const QString& screenSaver) {
    return QChar('/') + QString(screenSaver).replace('.', '/');
}

QDBusMessage getProperty(const QString& owner, const QString& path, const QString& name) {
    return QDBusMessage::createMethodCall(owner, path, kProperties, QStringLiteral("Get"))
           << kLoginSession << name;
}

QVariant valueIn(const QDBusMessage& answer) {
    return answer.arguments().value(0).value<QDBusVariant>().variant();
}

} // namespace

SessionLock::SessionLock(const QDBusConnection& sessionBus, const QDBusConnection& systemBus)
    : m_sessionBus(sessionBus), m_systemBus(systemBus) {
    for (const QString& screenSaver : kScreenSavers)
        m_sessionBus.connect({}, {}, screenSaver, QStringLiteral("ActiveChanged"), this,
                             SLOT(screenSaverChanged(bool, QDBusMessage)));
    watch(m_sessionBus, kScreenSavers);
    watch(m_systemBus, {kLogin});
}

/// Calls go to the owners' unique names, so that no call starts a service.
void SessionLock::watch(QDBusConnection& bus, const QStringList& services) {
    if (!bus.isConnected())
        return;
    auto* const watcher = new QDBusServiceWatcher(this);
    watcher->setConnection(bus);
    watcher->setWatchedServices(services);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& service, const QString&, const QString& owner) {
                ownerChanged(service, owner);
            });
    bus.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
                QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                SLOT(busLost()));
    for (const QString& service : services)
        askOwner(bus, service);
}

void SessionLock::askOwner(const QDBusConnection& bus, const QString& service) {
    const QString daemon = QStringLiteral("org.freedesktop.DBus");
    const QDBusMessage call =
        QDBusMessage::createMethodCall(daemon, QStringLiteral("/org/freedesktop/DBus"), daemon,
                                       QStringLiteral("GetNameOwner"))
        << service;
    callAsync(bus, call, this, [this, service](const QDBusMessage& answer) {
        if (isAnswer(answer))
            ownerChanged(service, answer.arguments().value(0).toString());
    });
}

void SessionLock::ownerChanged(const QString& service, const QString& owner) {
    if (m_services.value(service).owner == owner)
        return;
    m_services[service] = {owner, false};
    publish();
    if (owner.isEmpty())
        return;
    if (service == kLogin) {
        findLoginSession(owner);
        return;
    }
    callAsync(m_sessionBus,
              QDBusMessage::createMethodCall(owner, pathOf(service), service,
                                             QStringLiteral("GetActive")),
              this, [this, service, owner](const QDBusMessage& answer) {
                  if (isAnswer(answer))
                      setLocked(service, owner, answer.arguments().value(0).toBool());
              });
}

void SessionLock::screenSaverChanged(bool active, const QDBusMessage& signal) {
    setLocked(signal.interface(), signal.service(), active);
}

/// A program started by the user's service manager belongs to no session; then "auto" is the user's
/// graphical session. Signals come only from the session's own path.
void SessionLock::findLoginSession(const QString& owner) {
    const auto foundPath = [this, owner](const QDBusMessage& answer) {
        if (isAnswer(answer))
            followLoginSession(owner, answer.arguments().value(0).value<QDBusObjectPath>().path());
    };
    const auto foundId = [this, owner, foundPath](const QDBusMessage& answer) {
        QDBusMessage call = QDBusMessage::createMethodCall(
            owner, kLoginPath, QStringLiteral("org.freedesktop.login1.Manager"),
            QStringLiteral("GetSession"));
        if (isAnswer(answer))
            callAsync(m_systemBus, call << valueIn(answer).toString(), this, foundPath);
    };
    callAsync(m_systemBus, getProperty(owner, kLoginPath + "/session/auto", "Id"), this, foundId);
}

void SessionLock::followLoginSession(const QString& owner, const QString& path) {
    const QString changed = QStringLiteral("PropertiesChanged");
    const char* const slot =
        SLOT(loginSessionChanged(QString, QVariantMap, QStringList, QDBusMessage));
    if (!m_loginSession.isEmpty())
        m_systemBus.disconnect({}, m_loginSession, kProperties, changed, this, slot);
    m_loginSession = path;
    m_systemBus.connect({}, m_loginSession, kProperties, changed, this, slot);
    askLoginSession(owner);
}

void SessionLock::askLoginSession(const QString& owner) {
    callAsync(m_systemBus, getProperty(owner, m_loginSession, kLockedHint), this,
              [this, owner](const QDBusMessage& answer) {
                  if (isAnswer(answer))
                      setLocked(kLogin, owner, valueIn(answer).toBool());
              });
}

void SessionLock::loginSessionChanged(const QString& interface, const QVariantMap& changed,
                                      const QStringList& invalidated, const QDBusMessage& signal) {
    if (interface != kLoginSession)
        return;
    if (changed.contains(kLockedHint))
        setLocked(kLogin, signal.service(), changed.value(kLockedHint).toBool());
    else if (invalidated.contains(kLockedHint))
        askLoginSession(m_services.value(kLogin).owner);
}

void SessionLock::busLost() {
    for (const QString& service : m_services.keys())
        if (!(service == kLogin ? m_systemBus : m_sessionBus).isConnected())
            ownerChanged(service, {});
}

/// Ignores senders that do not own the service's name.
void SessionLock::setLocked(const QString& service, const QString& owner, bool locked) {
    const auto known = m_services.find(service);
    if (known == m_services.end() || known->owner != owner)
        return;
    known->locked = locked;
    publish();
}

void SessionLock::publish() {
    const bool locked = std::any_of(m_services.cbegin(), m_services.cend(),
                                    [](const Service& service) { return service.locked; });
    if (locked == m_locked)
        return;
    m_locked = locked;
    emit lockedChanged(locked);
}

} // namespace vexmoor
