#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>

#include <functional>
#include <stdexcept>
#include <utility>

namespace vexmoor::test {

/// A service that answers at every path below its root as the test specifies, and records the
/// called members.
class FakeService : public QDBusVirtualObject {
  public:
    /// Returns the reply to a call, or a default message for no reply.
    using Answering = std::function<QDBusMessage(const QDBusMessage& call)>;

    FakeService(QDBusConnection bus, QString name, Answering answering, QString root = "/")
        : m_bus(std::move(bus)), m_name(std::move(name)), m_answering(std::move(answering)),
          m_root(std::move(root)) {
        if (!m_bus.registerVirtualObject(m_root, this, QDBusConnection::SubPath) ||
            !m_bus.registerService(m_name))
            throw std::runtime_error("no fake service");
    }
    ~FakeService() override {
        m_bus.unregisterObject(m_root, QDBusConnection::UnregisterTree);
        m_bus.unregisterService(m_name);
    }

    void emitSignal(const QString& path, const QString& interface, const QString& name,
                    const QVariantList& arguments) {
        QDBusMessage signal = QDBusMessage::createSignal(path, interface, name);
        signal.setArguments(arguments);
        m_bus.send(signal);
    }

    QStringList calls;

  private:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        calls << message.member();
        const QDBusMessage answer = m_answering(message);
        if (answer.type() != QDBusMessage::InvalidMessage)
            m_bus.send(answer);
        return true;
    }

    QDBusConnection m_bus;
    QString m_name;
    Answering m_answering;
    QString m_root;
};

} // namespace vexmoor::test
