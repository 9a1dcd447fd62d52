#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace vexmoor {

/// Whether the screen is not being watched, so that animations can stop: a screen saver is active,
/// or the login manager reports that the session is locked. Never blocks on these services and
/// starts none of them. A service that exits counts as unlocked. Main thread only.
class SessionLock : public QObject {
    Q_OBJECT

  public:
    /// Requests the states; they arrive as changes. A bus that is not connected reports nothing.
    SessionLock(const QDBusConnection& sessionBus, const QDBusConnection& systemBus);

    [[nodiscard]] bool isLocked() const { return m_locked; }

  signals:
    void lockedChanged(bool locked);

  private slots:
    void screenSaverChanged(bool active, const QDBusMessage& signal);
    void loginSessionChanged(const QString& interface, const QVariantMap& changed,
                             const QStringList& invalidated, const QDBusMessage& signal);
    void busLost();

  private:
    struct Service {
        QString owner; ///< unique name; empty while the service does not run
        bool locked = false;
    };

    void watch(QDBusConnection& bus, const QStringList& services);
    void askOwner(const QDBusConnection& bus, const QString& service);
    void ownerChanged(const QString& service, const QString& owner);
    void findLoginSession(const QString& owner);
    void followLoginSession(const QString& owner, const QString& path);
    void askLoginSession(const QString& owner);
    void setLocked(const QString& service, const QString& owner, bool locked);
    void publish();

    QDBusConnection m_sessionBus;
    QDBusConnection m_systemBus;
    QHash<QString, Service> m_services; ///< by service name
    QString m_loginSession;             ///< object path; empty until known
    bool m_locked = false;
};

} // namespace vexmoor
