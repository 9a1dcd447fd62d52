#pragma once

#include "support/PrivateBus.h"

#include <QDBusConnection>

#include <set>

// Header only, since not all tests link Qt.

namespace vexmoor::test {

/// A private bus with named Qt connections, which it closes on destruction.
class ConnectedBus : public PrivateBus {
  public:
    explicit ConnectedBus(Services services) : PrivateBus(services) {}
    explicit ConnectedBus(std::initializer_list<const char*> names = {}) {
        for (const char* name : names)
            connect(name);
    }
    ~ConnectedBus() {
        for (const QString& name : m_names)
            QDBusConnection::disconnectFromBus(name);
    }

    /// Returns the connection with that name, which is opened by the first call.
    QDBusConnection connect(const char* name) {
        m_names.insert(name);
        return QDBusConnection::connectToBus(QString::fromStdString(address()), name);
    }

  private:
    std::set<QString> m_names;
};

} // namespace vexmoor::test
