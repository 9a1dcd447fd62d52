#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <stdexcept>
#include <vector>

namespace vexmoor::test {

/// A notification server that records its calls. Its ids start at 1.
class FakeNotificationServer : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

  public:
    struct Call {
        uint replaces;
        QString icon;
        QString title;
        QString body;
        QStringList actions;
        QVariantMap hints;
    };

    explicit FakeNotificationServer(QDBusConnection bus) : m_bus(std::move(bus)) {
        if (!m_bus.registerObject("/org/freedesktop/Notifications", this,
                                  QDBusConnection::ExportAllContents) ||
            !m_bus.registerService(kName))
            throw std::runtime_error("no fake server of notifications");
    }
    ~FakeNotificationServer() override { m_bus.unregisterService(kName); }

    QStringList capabilities = {"body", "actions"};
    bool reportedCapabilities = false; ///< the client has read the capabilities
    std::vector<Call> calls;
    bool holdsAnswers = false; ///< replies are held back until answer() is called

    void answer() {
        for (const auto& [message, id] : std::exchange(m_held, {}))
            m_bus.send(message.createReply(id));
    }

  public slots:
    QStringList GetCapabilities() {
        reportedCapabilities = true;
        return capabilities;
    }
    uint Notify(const QString&, uint replaces, const QString& icon, const QString& title,
                const QString& body, const QStringList& actions, const QVariantMap& hints, int) {
        calls.push_back({replaces, icon, title, body, actions, hints});
        const uint id = replaces != 0 ? replaces : m_nextId++;
        setDelayedReply(holdsAnswers);
        if (holdsAnswers)
            m_held.emplace_back(message(), id);
        return id;
    }

  signals:
    void ActivationToken(uint id, const QString& token);
    void ActionInvoked(uint id, const QString& action);
    void NotificationClosed(uint id, uint reason);

  private:
    static constexpr const char* kName = "org.freedesktop.Notifications";

    QDBusConnection m_bus;
    uint m_nextId = 1;
    std::vector<std::pair<QDBusMessage, uint>> m_held;
};

} // namespace vexmoor::test
