#pragma once

#include <QDBusConnection>
#include <QDBusUnixFileDescriptor>
#include <QObject>

namespace vexmoor {

/// Hears from the login manager that the computer is about to be shut down, and holds that up, for
/// as long as the login manager allows, while there is work. Without one nothing happens. Main
/// thread.
class ShutdownDelay : public QObject {
    Q_OBJECT

  public:
    explicit ShutdownDelay(const QDBusConnection& systemBus);

    /// Whether there is work that a shutdown should wait for.
    void setWorking(bool working);

  signals:
    void shutdownBegun();

  private slots:
    void prepareForShutdown(bool begins);

  private:
    void inhibit();

    QDBusConnection m_bus;
    QDBusUnixFileDescriptor m_lock; ///< held while it is valid
    bool m_isWorking = false;
};

} // namespace vexmoor
