#pragma once

#include <QDBusConnection>
#include <QDBusUnixFileDescriptor>
#include <QObject>

namespace vexmoor {

/// Reports an imminent shutdown and delays it while there is work, for as long as the login manager
/// allows. Does nothing without a login manager. Main thread.
class ShutdownDelay : public QObject {
    Q_OBJECT

  public:
    explicit ShutdownDelay(const QDBusConnection& systemBus);

    /// Sets whether a shutdown has to wait.
    void setWorking(bool working);

  signals:
    void shutdownBegun();

  private slots:
    void prepareForShutdown(bool begins);

  private:
    void inhibit();

    QDBusConnection m_bus;
    QDBusUnixFileDescriptor m_lock; ///< valid while it is held
    bool m_isWorking = false;
};

} // namespace vexmoor
