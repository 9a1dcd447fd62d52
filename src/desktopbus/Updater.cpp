#include "Updater.h"

#include "PackageTransaction.h"

#include <QStringList>

#include <algorithm>

namespace vexmoor {
namespace {

// PackageKit's constants.
constexpr uint kInfoInstalled = 1;
constexpr uint kInfoBlocked = 9;
constexpr qulonglong kFilterNone = 1 << 1;
constexpr qulonglong kFilterInstalled = 1 << 2;

/// Returns "0.2-3" for "1:0.2-3".
QString withoutEpoch(const QString& version) {
    return version.mid(version.indexOf(':') + 1);
}

/// Returns "0.2" for "1:0.2-3".
QString upstreamVersion(const QString& version) {
    const QString rest = withoutEpoch(version);
    return rest.left(rest.lastIndexOf('-'));
}

/// Includes the packagers' revision only if nothing else differs.
QString shownVersion(const Package& update, const Package& installed) {
    const QString upstream = upstreamVersion(update.version);
    return upstream == upstreamVersion(installed.version) ? withoutEpoch(update.version) : upstream;
}

} // namespace

Updater::Updater(const QDBusConnection& systemBus, const QString& executable,
                 std::chrono::milliseconds deadline)
    : m_bus(systemBus), m_executable(executable) {
    m_deadline.setSingleShot(true);
    m_deadline.setInterval(deadline);
    connect(&m_deadline, &QTimer::timeout, this,
            [this] { fail(tr("The system's package service did not answer in time.")); });
}

void Updater::checkForUpdates() {
    if (m_deadline.isActive())
        return;
    m_deadline.start();
    emit checkingChanged(true);
    if (m_bus.isConnected())
        findOurPackage();
    else
        QTimer::singleShot(0, &m_deadline, [this] {
            if (isChecking())
                finishWithoutService();
        });
}

void Updater::cancel() {
    if (!isChecking())
        return;
    m_deadline.stop();
    forgetTransaction();
    emit checkingChanged(false);
}

void Updater::findOurPackage() {
    ask(QStringLiteral("SearchFiles"), {kFilterInstalled, QStringList{m_executable}});
    connect(m_transaction, &PackageTransaction::serviceMissing, this,
            &Updater::finishWithoutService);
    connect(m_transaction, &PackageTransaction::succeeded, this,
            [this](const QList<Package>& packages) {
                const auto installed =
                    std::find_if(packages.cbegin(), packages.cend(), [](const Package& package) {
                        return package.info == kInfoInstalled;
                    });
                if (installed == packages.cend())
                    finish({UpdateCheck::Outcome::notManaged, {}, {}});
                else
                    findUpdateOf(*installed);
            });
}

void Updater::findUpdateOf(const Package& installed) {
    ask(QStringLiteral("GetUpdates"), {kFilterNone});
    connect(m_transaction, &PackageTransaction::serviceMissing, this,
            [this] { fail(PackageTransaction::stoppedProblem()); });
    connect(m_transaction, &PackageTransaction::succeeded, this,
            [this, installed](const QList<Package>& packages) {
                const auto update = std::find_if(
                    packages.cbegin(), packages.cend(), [&installed](const Package& package) {
                        return package.name == installed.name && package.info != kInfoBlocked;
                    });
                using Outcome = UpdateCheck::Outcome;
                if (update == packages.cend())
                    finish({Outcome::upToDate, upstreamVersion(installed.version), {}});
                else
                    finish({Outcome::updateAvailable, shownVersion(*update, installed), {}});
            });
}

void Updater::ask(const QString& method, const QVariantList& arguments) {
    forgetTransaction();
    m_transaction = new PackageTransaction(m_bus, method, arguments, this);
    connect(m_transaction, &PackageTransaction::failed, this, &Updater::fail);
}

void Updater::forgetTransaction() {
    if (!m_transaction)
        return;
    m_transaction->disconnect(this);
    m_transaction->deleteLater();
    m_transaction = nullptr;
}

void Updater::finishWithoutService() {
    finish({UpdateCheck::Outcome::noService, {}, {}});
}

void Updater::fail(const QString& problem) {
    finish({UpdateCheck::Outcome::failed, {}, problem});
}

void Updater::finish(const UpdateCheck& check) {
    m_deadline.stop();
    forgetTransaction();
    emit checkingChanged(false);
    emit finished(check);
}

} // namespace vexmoor
