#pragma once

#include "FakeService.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QMap>
#include <QVariantMap>

namespace vexmoor::test {

/// A fake of the desktop's settings portal.
class FakeSettingsPortal {
  public:
    using Groups = QMap<QString, QVariantMap>;

    FakeSettingsPortal(const QDBusConnection& bus, Groups groups)
        : m_groups(std::move(groups)),
          m_service(bus, "org.freedesktop.portal.Desktop",
                    [this](const QDBusMessage& call) { return answer(call); }) {
        qDBusRegisterMetaType<Groups>();
    }

    void set(const QString& group, const QString& key, const QVariant& value) {
        m_groups[group][key] = value;
        m_service.emitSignal("/org/freedesktop/portal/desktop", kInterface, "SettingChanged",
                             {group, key, QVariant::fromValue(QDBusVariant(value))});
    }

    bool answersNonsense = false;

  private:
    static constexpr const char* kInterface = "org.freedesktop.portal.Settings";

    QDBusMessage answer(const QDBusMessage& call) const {
        if (call.interface() != kInterface || call.member() != "ReadAll" ||
            call.path() != "/org/freedesktop/portal/desktop")
            return call.createErrorReply(QDBusError::UnknownMethod, call.member());
        if (answersNonsense)
            return call.createReply(QVariantMap{{"org.freedesktop.appearance", "dark"}});
        Groups chosen;
        for (const QString& group : call.arguments().value(0).toStringList())
            if (m_groups.contains(group))
                chosen[group] = m_groups[group];
        return call.createReply(QVariant::fromValue(chosen));
    }

    Groups m_groups;
    FakeService m_service;
};

} // namespace vexmoor::test
