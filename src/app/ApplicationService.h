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

/// The program's object on the session bus. One process owns the name; later starts forward their
/// requests to it (org.freedesktop.Application of the Desktop Entry Specification, and the
/// diagnostic). Emits a request as a signal after its sender has received the reply; requests
/// during start-up wait for deliverOrders(). Main thread.
class ApplicationService : public QObject {
    Q_OBJECT

  public:
    static constexpr const char* kName = "org.vexmoor.Vexmoor";
    static constexpr const char* kPath = "/org/vexmoor/Vexmoor";

    /// Calls block until the bus has answered, so that a start does not exit before its request is
    /// delivered.
    explicit ApplicationService(QDBusConnection bus);

    enum class Claim {
        owned,      ///< by this process
        taken,      ///< by another process
        impossible, ///< there is no bus
    };
    Claim claimName();

    /// Emits the waiting requests, and from now on each one when it arrives.
    void deliverOrders();

    /// Emits the waiting requests, and refuses later ones.
    void stopTaking();
    [[nodiscard]] bool hasOrders() const { return !m_waiting.empty(); }

    enum class Forwarding {
        taken,
        ending,     ///< the owner refuses new requests, or has quit
        unanswered, ///< the owner exists but did not answer in time
    };
    /// Sends a request to the owner of the name. `startup` is the launcher's startup id; empty if
    /// there is none.
    [[nodiscard]] Forwarding forwardActivate(const std::string& startup) const;
    [[nodiscard]] Forwarding forwardOpen(const std::vector<Path>& items, int others,
                                         const std::string& startup) const;

    /// Returns the diagnostic of the owner of the name; nullopt if there is no owner.
    [[nodiscard]] std::optional<QString> forwardProbe() const { return forward("Probe"); }
    [[nodiscard]] std::optional<QString> forwardDescribe() const { return forward("Describe"); }

    /// Sets the function that answers the diagnostic in this process.
    void setProbe(std::function<QString()> probe) { m_probe = std::move(probe); }
    [[nodiscard]] QString probe() const { return m_probe ? m_probe() : QString(); }
    void setDescription(std::function<QString()> describe) { m_describe = std::move(describe); }
    [[nodiscard]] QString describe() const { return m_describe ? m_describe() : QString(); }

    /// Queues the request in `message` with the launcher's startup id, if any.
    void take(std::function<void()> order, const QVariantMap& platformData,
              const QDBusMessage& message);

  signals:
    /// Emitted before and after a request for which a launcher waits.
    void startupBegun(const QByteArray& id);
    void startupEnded();
    void activateRequested();
    /// `items` are local; `others` is the number of items that are not on this computer.
    void openRequested(const std::vector<vexmoor::Path>& items, int others);
    void actionRequested(const QString& name);

  private:
    [[nodiscard]] Forwarding forward(const QDBusMessage& order) const;
    [[nodiscard]] std::optional<QString> forward(const char* diagnostic) const;

    QDBusConnection m_bus;
    std::function<QString()> m_probe;
    std::function<QString()> m_describe;
    std::vector<std::function<void()>> m_waiting;
    bool m_delivers = false;
    bool m_refuses = false;
};

/// The interface org.freedesktop.Application of the service.
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

/// The interface of the service that answers the diagnostic.
class DiagnosticsAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.vexmoor.Diagnostics1")

  public:
    explicit DiagnosticsAdaptor(ApplicationService& service);

  public slots:
    QString Probe();
    QString Describe();

  private:
    ApplicationService& m_service;
};

} // namespace vexmoor
