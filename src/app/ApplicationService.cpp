#include "ApplicationService.h"

#include "dock/DroppedUris.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>

#include <utility>

namespace vexmoor {
namespace {

constexpr int kPatienceMilliseconds = 10000;
constexpr const char* kApplication = "org.freedesktop.Application";
constexpr const char* kDiagnostics = "org.vexmoor.Diagnostics1";

QDBusMessage order(const char* interface, const char* method) {
    return QDBusMessage::createMethodCall(QLatin1String(ApplicationService::kName),
                                          QLatin1String(ApplicationService::kPath),
                                          QLatin1String(interface), QLatin1String(method));
}

} // namespace

ApplicationService::ApplicationService(QDBusConnection bus) : m_bus(std::move(bus)) {
    new ApplicationAdaptor(*this);
    new DiagnosticsAdaptor(*this);
    // Before the name, so that nobody finds the name without it.
    m_bus.registerObject(QLatin1String(kPath), this);
}

ApplicationService::Claim ApplicationService::claimName() {
    if (!m_bus.isConnected())
        return Claim::impossible;
    const auto reply = m_bus.interface()->registerService(QLatin1String(kName));
    if (!reply.isValid())
        return Claim::impossible;
    return reply.value() == QDBusConnectionInterface::ServiceRegistered ? Claim::owned
                                                                        : Claim::taken;
}

void ApplicationService::take(std::function<void()> order) {
    m_waiting.push_back(std::move(order));
    if (m_delivers) // not now: whoever sent it shall not wait until the user has answered
        QMetaObject::invokeMethod(this, &ApplicationService::deliverOrders, Qt::QueuedConnection);
}

void ApplicationService::deliverOrders() {
    m_delivers = true;
    const auto orders = std::exchange(m_waiting, {});
    for (const auto& order : orders)
        order();
}

bool ApplicationService::forwardActivate() const {
    auto message = order(kApplication, "Activate");
    message << QVariantMap();
    return m_bus.call(message, QDBus::Block, kPatienceMilliseconds).type() ==
           QDBusMessage::ReplyMessage;
}

bool ApplicationService::forwardOpen(const std::vector<Path>& items, int others) const {
    QStringList uris(others, QStringLiteral("other:")); // its owner says what it thinks of them
    for (const auto& item : items)
        uris.push_back(QString::fromStdString(fileUri(item)));
    auto message = order(kApplication, "Open");
    message << uris << QVariantMap();
    return m_bus.call(message, QDBus::Block, kPatienceMilliseconds).type() ==
           QDBusMessage::ReplyMessage;
}

std::optional<QString> ApplicationService::forwardProbe() const {
    if (!m_bus.isConnected() || !m_bus.interface()->isServiceRegistered(QLatin1String(kName)))
        return std::nullopt;
    const QDBusReply<QString> reply =
        m_bus.call(order(kDiagnostics, "Probe"), QDBus::Block, kPatienceMilliseconds);
    return reply.isValid() && !reply.value().isEmpty() ? std::optional(reply.value())
                                                       : std::nullopt;
}

ApplicationAdaptor::ApplicationAdaptor(ApplicationService& service)
    : QDBusAbstractAdaptor(&service), m_service(service) {}

void ApplicationAdaptor::Activate(const QVariantMap&) {
    m_service.take([this] { emit m_service.activateRequested(); });
}

void ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap&) {
    DroppedUris dropped;
    for (const auto& uri : uris) {
        if (auto path = pathFromFileUri(uri.toStdString()))
            dropped.items.push_back(*std::move(path));
        else
            ++dropped.others;
    }
    m_service.take(
        [this, dropped] { emit m_service.openRequested(dropped.items, dropped.others); });
}

void ApplicationAdaptor::ActivateAction(const QString& name, const QVariantList&,
                                        const QVariantMap&) {
    m_service.take([this, name] { emit m_service.actionRequested(name); });
}

DiagnosticsAdaptor::DiagnosticsAdaptor(ApplicationService& service)
    : QDBusAbstractAdaptor(&service), m_service(service) {}

QString DiagnosticsAdaptor::Probe() {
    return m_service.probe();
}

} // namespace vexmoor
