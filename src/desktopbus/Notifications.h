#pragma once

#include "progression/NotificationPort.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QObject>
#include <QStringList>

#include <optional>

namespace vexmoor {

/// The desktop's notifications (org.freedesktop.Notifications). Nothing waits for their server,
/// which may come and go at any time. Main thread only; completions come there too.
class Notifications : public QObject, public NotificationPort {
    Q_OBJECT

  public:
    explicit Notifications(const QDBusConnection& bus);

    /// Granted where a server answers.
    void requestAuthorization(std::function<void(bool granted)> completion) override;

    /// Without a server nothing is shown.
    void post(const Notification& notification) override;

  signals:
    /// The user chose one of those that were posted. `token` allows a window that is shown for it
    /// to take the focus; empty where the server gave none.
    void activated(const QString& identifier, const QByteArray& token);

  private slots:
    void activationToken(uint id, const QString& token);
    void actionInvoked(uint id, const QString& action);
    void closed(uint id, uint reason);

  private:
    /// What the server knows of one identifier.
    struct Shown {
        uint id = 0;                      ///< the server's; 0 until it has answered
        bool awaited = false;             ///< an answer is on its way
        std::optional<Notification> next; ///< to be shown after that answer
        QByteArray token;                 ///< for the action that comes next
    };

    void show(const Notification& notification);
    void answered(const QString& identifier, const QDBusMessage& answer);
    void serverChanged(const QString& owner);
    void askCapabilities();
    void learnCapabilities(const QDBusMessage& answer);
    [[nodiscard]] QString bodyText(const std::string& body) const;

    QDBusConnection m_bus;
    std::optional<QStringList> m_capabilities; ///< of the server that runs, once it has told them
    QHash<QString, Shown> m_shown;             ///< by our identifier
};

} // namespace vexmoor
