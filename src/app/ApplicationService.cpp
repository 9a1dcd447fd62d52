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
// The launcher's startup id (X11) and activation token (Wayland).
constexpr const char* kStartup = "desktop-startup-id";
constexpr const char* kToken = "activation-token";
constexpr const char* kEnding = "org.vexmoor.Error.Ending";
constexpr const char* kDiagnostics = "org.vexmoor.Diagnostics1";

QDBusMessage order(const char* interface, const char* method) {
    auto message = QDBusMessage::createMethodCall(QLatin1String(ApplicationService::kName),
                                                  QLatin1String(ApplicationService::kPath),
                                                  QLatin1String(interface), QLatin1String(method));
    message.setAutoStartService(false); // if the owner has just quit, this start takes its place
    return message;
}

QVariantMap platformData(const std::string& startup) {
    return startup.empty() ? QVariantMap()
                           : QVariantMap{{kStartup, QString::fromStdString(startup)}};
}

} // namespace

ApplicationService::ApplicationService(QDBusConnection bus) : m_bus(std::move(bus)) {
    new ApplicationAdaptor(*this);
    new DiagnosticsAdaptor(*this);
    // Before the name is claimed, so that no caller finds the name without the object.
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

void ApplicationService::take(std::function<void()> order, const QVariantMap& platformData,
                              const QDBusMessage& message) {
    if (m_refuses) {
        message.setDelayedReply(true);
        m_bus.send(message.createErrorReply(QLatin1String(kEnding), tr("Vexmoor is quitting.")));
        return;
    }
    auto startup = platformData.value(QLatin1String(kStartup)).toByteArray();
    if (startup.isEmpty())
        startup = platformData.value(QLatin1String(kToken)).toByteArray();
    m_waiting.push_back([this, startup, order = std::move(order)] {
        if (!startup.isEmpty())
            emit startupBegun(startup);
        order();
        if (!startup.isEmpty())
            emit startupEnded();
    });
    if (m_delivers) // queued: the sender must not wait for the user's answer
        QMetaObject::invokeMethod(this, &ApplicationService::deliverOrders, Qt::QueuedConnection);
}

void ApplicationService::deliverOrders() {
    m_delivers = true;
    const auto orders = std::exchange(m_waiting, {});
    for (const auto& order : orders)
        order();
}

ApplicationService::Forwarding
ApplicationService::forwardActivate(const std::string& startup) const {
    auto message = order(kApplication, "Activate");
    message << platformData(startup);
    return forward(message);
}

ApplicationService::Forwarding ApplicationService::forwardOpen(const std::vector<Path>& items,
                                                               int others,
                                                               const std::string& startup) const {
    QStringList uris(others, QStringLiteral("other:")); // the owner reports them
    for (const auto& item : items)
        uris.push_back(QString::fromStdString(fileUri(item)));
    auto message = order(kApplication, "Open");
    message << uris << platformData(startup);
    return forward(message);
}

ApplicationService::Forwarding ApplicationService::forward(const QDBusMessage& order) const {
    const auto reply = m_bus.call(order, QDBus::Block, kPatienceMilliseconds);
    if (reply.type() == QDBusMessage::ReplyMessage)
        return Forwarding::taken;
    const bool isThere = m_bus.interface()->isServiceRegistered(QLatin1String(kName));
    return reply.errorName() == QLatin1String(kEnding) || !isThere ? Forwarding::ending
                                                                   : Forwarding::unanswered;
}

void ApplicationService::stopTaking() {
    deliverOrders();
    m_refuses = true;
}

std::optional<QString> ApplicationService::forward(const char* diagnostic) const {
    if (!m_bus.isConnected() || !m_bus.interface()->isServiceRegistered(QLatin1String(kName)))
        return std::nullopt;
    const QDBusReply<QString> reply =
        m_bus.call(order(kDiagnostics, diagnostic), QDBus::Block, kPatienceMilliseconds);
    return reply.isValid() && !reply.value().isEmpty() ? std::optional(reply.value())
                                                       : std::nullopt;
}

ApplicationAdaptor::ApplicationAdaptor(ApplicationService& service)
    : QDBusAbstractAdaptor(&service), m_service(service) {}

void ApplicationAdaptor::Activate(const QVariantMap& platformData, const QDBusMessage& message) {
    m_service.take([this] { emit m_service.activateRequested(); }, platformData, message);
}

void ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap& platformData,
                              const QDBusMessage& message) {
    DroppedUris dropped;
    for (const auto& uri : uris) {
        if (auto path = pathFromFileUri(uri.toStdString()))
            dropped.items.push_back(*std::move(path));
        else
            ++dropped.others;
    }
    m_service.take([this, dropped] { emit m_service.openRequested(dropped.items, dropped.others); },
                   platformData, message);
}

void ApplicationAdaptor::ActivateAction(const QString& name, const QVariantList&,
                                        const QVariantMap& platformData,
                                        const QDBusMessage& message) {
    m_service.take([this, name] { emit m_service.actionRequested(name); }, platformData, message);
}

DiagnosticsAdaptor::DiagnosticsAdaptor(ApplicationService& service)
    : QDBusAbstractAdaptor(&service), m_service(service) {}

QString DiagnosticsAdaptor::Probe() {
    return m_service.probe();
}

QString DiagnosticsAdaptor::Describe() {
    return m_service.describe();
}

} // namespace vexmoor
