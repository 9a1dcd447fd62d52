#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace vexmoor {

/// Whether nobody looks at the screen, so that what moves there can rest: a screen saver is active,
/// or the login manager says that the session is locked. Nothing waits for those services, and none
/// is started. They may come and go; one that is gone locks nothing. Main thread only.
class SessionLock : public QObject {
    Q_OBJECT

  public:
    /// Asks at once. The answers come later, as changes; a bus that is not there tells nothing.
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
        QString owner; ///< its unique name on its bus; empty while it does not run
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
    QHash<QString, Service> m_services; ///< by name
    QString m_loginSession;             ///< its path; empty until it is known
    bool m_locked = false;
};

} // namespace vexmoor
