#pragma once

#include "support/PrivateBus.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace vexmoor::test {

/// A bus-activatable service that leaves a marker file and fails immediately.
class ActivatableService {
  public:
    ActivatableService(const PrivateBus& bus, const QDBusConnection& connection,
                       const std::string& name)
        : m_mark(bus.folder() / (name + ".started")) {
        const Path folder = bus.folder() / "data/dbus-1/services";
        std::filesystem::create_directories(folder);
        std::ofstream(folder / (name + ".service"))
            << "[D-BUS Service]\nName=" << name << "\nExec=/bin/sh -c \"touch " << m_mark.string()
            << "; exit 1\"\n";
        const QDBusMessage answer = connection.call(
            QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                           "org.freedesktop.DBus", "ReloadConfig"));
        if (answer.type() != QDBusMessage::ReplyMessage)
            throw std::runtime_error("the bus does not read its services again");
    }

    [[nodiscard]] bool wasStarted() const { return std::filesystem::exists(m_mark); }

  private:
    Path m_mark;
};

} // namespace vexmoor::test
