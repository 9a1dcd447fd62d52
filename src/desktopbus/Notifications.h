#pragma once

#include "progression/NotificationPort.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QObject>
#include <QStringList>

#include <optional>

namespace vexmoor {

/// The desktop's notifications (org.freedesktop.Notifications). Never blocks on the server, which
/// may start and exit at any time. Main thread only; completions run there too.
class Notifications : public QObject, public NotificationPort {
    Q_OBJECT

  public:
    explicit Notifications(const QDBusConnection& bus);

    /// Grants permission if a server answers.
    void requestAuthorization(std::function<void(bool granted)> completion) override;

    /// Does nothing if there is no server.
    void post(const Notification& notification) override;

  signals:
    /// The user activated a posted notification. `token` is the activation token for a window that
    /// opens as a result; empty if the server sent none.
    void activated(const QString& identifier, const QByteArray& token);

  private slots:
    void activationToken(uint id, const QString& token);
    void actionInvoked(uint id, const QString& action);
    void closed(uint id, uint reason);

  private:
    /// The server's state of one notification.
    struct Shown {
        uint id = 0;                      ///< assigned by the server; 0 until it has answered
        bool awaited = false;             ///< a reply is pending
        std::optional<Notification> next; ///< shown after that reply
        QByteArray token;                 ///< for the next action
    };

    void show(const Notification& notification);
    void answered(const QString& identifier, const QDBusMessage& answer);
    void serverChanged(const QString& owner);
    void askCapabilities();
    void learnCapabilities(const QDBusMessage& answer);
    [[nodiscard]] QString bodyText(const std::string& body) const;

    QDBusConnection m_bus;
    std::optional<QStringList> m_capabilities; ///< of the running server, once known
    QHash<QString, Shown> m_shown;             ///< by our identifier
};

} // namespace vexmoor
