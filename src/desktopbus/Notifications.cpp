#include "Notifications.h"

#include "AsyncCall.h"

#include <QDBusServiceWatcher>
#include <QLoggingCategory>
#include <QVariantMap>

#include <utility>

namespace vexmoor {
namespace {

Q_LOGGING_CATEGORY(log, "notifications")

const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");
const QString kApplication = QStringLiteral("org.vexmoor.Vexmoor");
const QString kDefaultAction = QStringLiteral("default");

QDBusMessage call(const char* method) {
    return QDBusMessage::createMethodCall(kService, kPath, kService, QLatin1String(method));
}

} // namespace

Notifications::Notifications(const QDBusConnection& bus) : m_bus(bus) {
    m_bus.connect(kService, kPath, kService, QStringLiteral("ActivationToken"), this,
                  SLOT(activationToken(uint, QString)));
    m_bus.connect(kService, kPath, kService, QStringLiteral("ActionInvoked"), this,
                  SLOT(actionInvoked(uint, QString)));
    m_bus.connect(kService, kPath, kService, QStringLiteral("NotificationClosed"), this,
                  SLOT(closed(uint, uint)));
    const auto* const watcher =
        new QDBusServiceWatcher(kService, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) { serverChanged(owner); });
    askCapabilities();
}

void Notifications::requestAuthorization(std::function<void(bool granted)> completion) {
    if (!m_bus.isConnected()) { // calls would never be answered
        qCInfo(log) << "There is no session bus.";
        completion(false);
        return;
    }
    callAsync(m_bus, call("GetCapabilities"), this, [this, completion](const QDBusMessage& answer) {
        learnCapabilities(answer);
        if (!isAnswer(answer))
            qCInfo(log) << "No notification server:" << answer.errorMessage();
        completion(isAnswer(answer));
    });
}

void Notifications::post(const Notification& notification) {
    if (!m_bus.isConnected())
        return;
    Shown& shown = m_shown[QString::fromStdString(notification.identifier)];
    if (shown.awaited) // the server has not assigned the replaced notification's id yet
        shown.next = notification;
    else
        show(notification);
}

void Notifications::show(const Notification& notification) {
    const QString identifier = QString::fromStdString(notification.identifier);
    Shown& shown = m_shown[identifier];
    constexpr int kServersOwnTime = -1;
    QDBusMessage message = call("Notify");
    message << QStringLiteral("Vexmoor") << shown.id << kApplication
            << QString::fromStdString(notification.title) << bodyText(notification.body)
            << QStringList{kDefaultAction, tr("Open")}
            << QVariantMap{{"desktop-entry", kApplication}, {"sound-name", "message-new-instant"}}
            << kServersOwnTime;
    shown.awaited = true;
    callAsync(m_bus, message, this,
              [this, identifier](const QDBusMessage& answer) { answered(identifier, answer); });
}

void Notifications::answered(const QString& identifier, const QDBusMessage& answer) {
    Shown& shown = m_shown[identifier];
    shown.awaited = false;
    if (isAnswer(answer))
        shown.id = answer.arguments().value(0).toUInt();
    else
        qCInfo(log) << "Notification not shown:" << answer.errorMessage();
    if (const auto next = std::exchange(shown.next, std::nullopt))
        show(*next);
}

void Notifications::activationToken(uint id, const QString& token) {
    for (Shown& shown : m_shown)
        if (shown.id == id)
            shown.token = token.toUtf8();
}

void Notifications::actionInvoked(uint id, const QString& action) {
    if (action != kDefaultAction)
        return;
    for (auto shown = m_shown.begin(); shown != m_shown.end(); ++shown)
        if (shown->id == id && id != 0) {
            const QByteArray token = std::exchange(shown->token, {});
            emit activated(QString(shown.key()), token);
            return;
        }
}

void Notifications::closed(uint id, uint) {
    for (Shown& shown : m_shown)
        if (shown.id == id)
            shown.id = 0;
}

void Notifications::serverChanged(const QString& owner) {
    m_capabilities.reset();
    for (Shown& shown : m_shown) // ids of another server are invalid
        shown.id = 0;
    if (!owner.isEmpty())
        askCapabilities();
}

/// Does not start a server.
void Notifications::askCapabilities() {
    if (!m_bus.isConnected())
        return;
    QDBusMessage message = call("GetCapabilities");
    message.setAutoStartService(false);
    callAsync(m_bus, message, this,
              [this](const QDBusMessage& answer) { learnCapabilities(answer); });
}

void Notifications::learnCapabilities(const QDBusMessage& answer) {
    if (isAnswer(answer))
        m_capabilities = answer.arguments().value(0).toStringList();
}

/// Escapes the text if the server interprets markup or has not reported its capabilities yet: a
/// visible entity is better than a missing name.
QString Notifications::bodyText(const std::string& body) const {
    const QString text = QString::fromStdString(body);
    const bool isRead = !m_capabilities || m_capabilities->contains("body-markup");
    return isRead ? text.toHtmlEscaped() : text;
}

} // namespace vexmoor
