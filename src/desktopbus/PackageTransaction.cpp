#include "PackageTransaction.h"

#include "AsyncCall.h"

#include <QDBusError>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QStringList>

#include <utility>

namespace vexmoor {
namespace {

const QString kService = QStringLiteral("org.freedesktop.PackageKit");
const QString kPath = QStringLiteral("/org/freedesktop/PackageKit");
const QString kTransaction = QStringLiteral("org.freedesktop.PackageKit.Transaction");

constexpr uint kExitSuccess = 1;

/// True if the service does not run and cannot be activated.
bool isMissing(const QDBusMessage& error) {
    static const QStringList kNames = {
        QStringLiteral("org.freedesktop.DBus.Error.ServiceUnknown"),
        QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner"),
        QStringLiteral("org.freedesktop.DBus.Error.Spawn.ServiceNotFound"),
        QStringLiteral("org.freedesktop.systemd1.NoSuchUnit"),
        QStringLiteral("org.freedesktop.systemd1.UnitMasked"),
    };
    return kNames.contains(error.errorName());
}

/// True if the service exited during the call.
bool isDeath(const QDBusMessage& error) {
    const QDBusError::ErrorType type = QDBusError(error).type();
    return type == QDBusError::NoReply || type == QDBusError::ServiceUnknown;
}

/// Parses "name;version;architecture;data".
Package packageOf(uint info, const QString& packageId) {
    const QStringList fields = packageId.split(';');
    return {info, fields.value(0), fields.value(1)};
}

} // namespace

PackageTransaction::PackageTransaction(const QDBusConnection& bus, const QString& method,
                                       const QVariantList& arguments, QObject* parent)
    : QObject(parent), m_bus(bus) {
    const auto created = [this, method, arguments](const QDBusMessage& answer) {
        if (isAnswer(answer)) {
            // Newer versions of Qt do not report the sender of every reply.
            m_service = answer.service().isEmpty() ? kService : answer.service();
            m_path = answer.arguments().value(0).value<QDBusObjectPath>().path();
            begin(method, arguments);
        } else if (isMissing(answer)) {
            m_open = false;
            emit serviceMissing();
        } else {
            failFrom(answer);
        }
    };
    callAsync(m_bus,
              QDBusMessage::createMethodCall(kService, kPath, kService,
                                             QStringLiteral("CreateTransaction")),
              this, created, kNoTimeout);
}

PackageTransaction::~PackageTransaction() {
    if (m_open && !m_path.isEmpty())
        m_bus.send(call(QStringLiteral("Cancel")));
}

void PackageTransaction::begin(const QString& method, const QVariantList& arguments) {
    const auto* const watcher = new QDBusServiceWatcher(
        m_service, m_bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { fail(stoppedProblem()); });
    const auto listen = [this](const char* signal, const char* slot) {
        m_bus.connect(m_service, m_path, kTransaction, QLatin1String(signal), this, slot);
    };
    listen("Package", SLOT(packageFound(uint, QString, QString)));
    listen("ErrorCode", SLOT(errorReported(uint, QString)));
    listen("Finished", SLOT(transactionFinished(uint, uint)));
    QDBusMessage question = call(method);
    question.setArguments(arguments);
    const auto accepted = [this](const QDBusMessage& answer) {
        if (!isAnswer(answer))
            failFrom(answer);
    };
    callAsync(m_bus, question, this, accepted, kNoTimeout);
}

QDBusMessage PackageTransaction::call(const QString& method) const {
    return QDBusMessage::createMethodCall(m_service, m_path, kTransaction, method);
}

void PackageTransaction::packageFound(uint info, const QString& packageId, const QString&) {
    m_packages << packageOf(info, packageId);
}

void PackageTransaction::errorReported(uint, const QString& details) {
    m_error = details;
}

void PackageTransaction::transactionFinished(uint exit, uint) {
    if (exit != kExitSuccess)
        fail(reportedProblem(m_error));
    else if (std::exchange(m_open, false))
        emit succeeded(m_packages);
}

void PackageTransaction::failFrom(const QDBusMessage& error) {
    fail(isDeath(error) ? stoppedProblem() : reportedProblem(error.errorMessage()));
}

void PackageTransaction::fail(const QString& problem) {
    if (std::exchange(m_open, false))
        emit failed(problem);
}

QString PackageTransaction::stoppedProblem() {
    return tr("The system's package service stopped before it replied.");
}

QString PackageTransaction::reportedProblem(const QString& words) {
    return words.trimmed().isEmpty()
               ? tr("The system's package service failed without an error message.")
               : tr("The system's package service reports: %1").arg(words.trimmed());
}

} // namespace vexmoor
