#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QList>
#include <QObject>
#include <QString>
#include <QVariantList>

namespace vexmoor {

/// A package as the service reports it.
struct Package {
    uint info = 0; ///< PackageKit's info code
    QString name;
    QString version; ///< the packagers' version string
};

/// One request to the system's package service (PackageKit), which is activated if necessary. Emits
/// exactly one of the signals, after the constructor returned; destruction cancels the request.
/// There is no timeout; the caller sets one. Main thread only.
class PackageTransaction : public QObject {
    Q_OBJECT

  public:
    /// The bus must be connected.
    PackageTransaction(const QDBusConnection& bus, const QString& method,
                       const QVariantList& arguments, QObject* parent);
    ~PackageTransaction() override;
    PackageTransaction(const PackageTransaction&) = delete;
    PackageTransaction& operator=(const PackageTransaction&) = delete;

    /// Returns a sentence for the user.
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
    QString m_service; ///< the unique name of the transaction's owner
    QString m_path;
    bool m_open = true; ///< no signal was emitted yet
    QList<Package> m_packages;
    QString m_error; ///< the service's message
};

} // namespace vexmoor
