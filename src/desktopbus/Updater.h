#pragma once

#include "UpdateCheck.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QVariantList>

#include <chrono>

namespace vexmoor {

class PackageTransaction;
struct Package;

/// Asks the system's package service for a newer version of this copy. Installs nothing; that is
/// left to the system's tools. Asynchronous. Main thread only.
class Updater : public QObject {
    Q_OBJECT

  public:
    static constexpr std::chrono::seconds kDeadline{60};

    /// `executable` is the absolute path by which the package of this copy is found.
    Updater(const QDBusConnection& systemBus, const QString& executable,
            std::chrono::milliseconds deadline = kDeadline);

    /// Starts a check. `finished` follows within the deadline unless the check is cancelled. Does
    /// nothing if a check is running.
    void checkForUpdates();
    /// Cancels a running check; `finished` is not emitted.
    void cancel();
    [[nodiscard]] bool isChecking() const { return m_deadline.isActive(); }

  signals:
    /// A check started or ended.
    void checkingChanged(bool isChecking);
    void finished(const UpdateCheck& check);

  private:
    void findOurPackage();
    void findUpdateOf(const Package& installed);
    void ask(const QString& method, const QVariantList& arguments);
    void forgetTransaction();
    void finishWithoutService();
    void fail(const QString& problem);
    void finish(const UpdateCheck& check);

    QDBusConnection m_bus;
    QString m_executable;
    QTimer m_deadline;                           ///< active during a check
    PackageTransaction* m_transaction = nullptr; ///< the pending request
};

} // namespace vexmoor
