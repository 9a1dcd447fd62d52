#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QList>
#include <QObject>
#include <QString>
#include <QVariantList>

namespace vexmoor {

/// A package as the service names it.
struct Package {
    uint info = 0; ///< what is said of it, in the service's numbers
    QString name;
    QString version; ///< as its packagers write it
};

/// One question to the system's package service (PackageKit), which is started where it does not
/// run. Exactly one of the signals comes, after the constructor has returned; destruction calls the
/// question off. The service may take its time: the caller has the deadline. Main thread only.
class PackageTransaction : public QObject {
    Q_OBJECT

  public:
    /// The bus must be connected.
    PackageTransaction(const QDBusConnection& bus, const QString& method,
                       const QVariantList& arguments, QObject* parent);
    ~PackageTransaction() override;
    PackageTransaction(const PackageTransaction&) = delete;
    PackageTransaction& operator=(const PackageTransaction&) = delete;

    /// A sentence for the user.
    [[nodiscard]] static QString stoppedProblem();

  signals:
    void succeeded(const QList<Package>& packages);
    /// `problem` is a sentence for the user.
    void failed(const QString& problem);
    /// The service does not run and cannot be started.
    void serviceMissing();

  private slots:
    void packageFound(uint info, const QString& packageId, const QString& summary);
    void errorReported(uint code, const QString& details);
    void transactionFinished(uint exit, uint milliseconds);

  private:
    void begin(const QString& method, const QVariantList& arguments);
    [[nodiscard]] QDBusMessage call(const QString& method) const;
    void failFrom(const QDBusMessage& error);
    void fail(const QString& problem);
    [[nodiscard]] static QString reportedProblem(const QString& words);

    QDBusConnection m_bus;
    QString m_service; ///< the unique name of who has the transaction
    QString m_path;
    bool m_open = true; ///< nothing has been told yet
    QList<Package> m_packages;
    QString m_error; ///< in the service's words
};

} // namespace vexmoor
