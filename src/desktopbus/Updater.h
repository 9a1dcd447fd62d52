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

/// Asks the system's package service whether there is something newer than this copy. It installs
/// nothing: that is for the system's own programs. Nothing waits. Main thread only.
class Updater : public QObject {
    Q_OBJECT

  public:
    static constexpr std::chrono::seconds kDeadline{60};

    /// `executable` is the absolute path by which the package of this copy is found.
    Updater(const QDBusConnection& systemBus, const QString& executable,
            std::chrono::milliseconds deadline = kDeadline);

    /// `finished` follows, within the deadline, unless it is cancelled. During a check there is no
    /// second one.
    void checkForUpdates();
    /// Calls off the check that runs, if one does; `finished` does not follow.
    void cancel();
    [[nodiscard]] bool isChecking() const { return m_deadline.isActive(); }

  signals:
    /// A check began or ended.
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
    QTimer m_deadline;                           ///< runs during a check
    PackageTransaction* m_transaction = nullptr; ///< the question under way
};

} // namespace vexmoor
