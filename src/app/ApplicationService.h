#pragma once

#include "base/Path.h"

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <optional>
#include <vector>

namespace vexmoor {

/// The program as the session bus knows it: one owns the name, others hand their orders to it
/// (org.freedesktop.Application of the Desktop Entry Specification, and the diagnostic). Orders
/// come as signals, after their senders were answered; those that come early wait until there is
/// somebody to carry them out. Main thread.
class ApplicationService : public QObject {
    Q_OBJECT

  public:
    static constexpr const char* kName = "org.vexmoor.Vexmoor";
    static constexpr const char* kPath = "/org/vexmoor/Vexmoor";

    /// Calls wait for the bus, so that a start does not end before its order has arrived.
    explicit ApplicationService(QDBusConnection bus);

    enum class Claim {
        owned,      ///< this process is the one
        taken,      ///< another is
        impossible, ///< there is no bus to ask
    };
    Claim claimName();

    /// Hands out the orders that wait, and from now on each as it comes.
    void deliverOrders();

    /// Hands out the orders that wait, and from now on refuses those that come.
    void stopTaking();
    [[nodiscard]] bool hasOrders() const { return !m_waiting.empty(); }

    enum class Forwarding {
        taken,
        ending,     ///< the owner takes nothing any more, or has gone
        unanswered, ///< it is there and does not say
    };
    /// Sends an order to the owner of the name. `startup` is the launcher's id of the start that
    /// the order came with; empty where it has none.
    [[nodiscard]] Forwarding forwardActivate(const std::string& startup) const;
    [[nodiscard]] Forwarding forwardOpen(const std::vector<Path>& items, int others,
                                         const std::string& startup) const;

    /// What the owner of the name answers to the diagnostic; nothing where there is none.
    [[nodiscard]] std::optional<QString> forwardProbe() const;

    /// What this program answers to the diagnostic.
    void setProbe(std::function<QString()> probe) { m_probe = std::move(probe); }
    [[nodiscard]] QString probe() const { return m_probe ? m_probe() : QString(); }

    /// Takes in the order of that message, and whatever a launcher says of it.
    void take(std::function<void()> order, const QVariantMap& platformData,
              const QDBusMessage& message);

  signals:
    /// The order that comes next is what a launcher waits for; and it was carried out.
    void startupBegun(const QByteArray& id);
    void startupEnded();
    void activateRequested();
    /// Local items; `others` of what was named is not on this computer.
    void openRequested(const std::vector<vexmoor::Path>& items, int others);
    void actionRequested(const QString& name);

  private:
    [[nodiscard]] Forwarding forward(const QDBusMessage& order) const;

    QDBusConnection m_bus;
    std::function<QString()> m_probe;
    std::vector<std::function<void()>> m_waiting;
    bool m_delivers = false;
    bool m_refuses = false;
};

/// What the service answers to as org.freedesktop.Application.
class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

  public:
    explicit ApplicationAdaptor(ApplicationService& service);

  public slots:
    void Activate(const QVariantMap& platformData, const QDBusMessage& message);
    void Open(const QStringList& uris, const QVariantMap& platformData,
              const QDBusMessage& message);
    void ActivateAction(const QString& name, const QVariantList& parameter,
                        const QVariantMap& platformData, const QDBusMessage& message);

  private:
    ApplicationService& m_service;
};

/// What it answers to when somebody wants to know what it sees of the desktop.
class DiagnosticsAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.vexmoor.Diagnostics1")

  public:
    explicit DiagnosticsAdaptor(ApplicationService& service);

  public slots:
    QString Probe();

  private:
    ApplicationService& m_service;
};

} // namespace vexmoor
