#include "Tray.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QVariantMap>

#include <algorithm>
#include <stdexcept>

namespace vexmoor::test {
namespace {

constexpr const char* kWatcher = "org.kde.StatusNotifierWatcher";
constexpr const char* kItem = "org.kde.StatusNotifierItem";
constexpr const char* kConfiguration = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="dark-mode" type="bool" value="%1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=8;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="30"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
)";

BackgroundProgram startPanel(DesktopSession& session, bool isDark) {
    session.write(".config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml",
                  QString(kConfiguration).arg(isDark ? "true" : "false").toStdString());
    if (session.hasService("org.xfce.Xfconf")) // the service has already read the file
        session.run({"xfconf-query", "--channel", "xfce4-panel", "--property", "/panels/dark-mode",
                     "--set", isDark ? "true" : "false"});
    return session.start({"xfce4-panel"});
}

QVariant property(const DesktopSession& session, BusObject object, const char* name) {
    const QString interface = object.interface;
    object.interface = "org.freedesktop.DBus.Properties";
    return session.call(object, "Get", {interface, name}).at(0).value<QDBusVariant>().variant();
}

/// Parses (ia{sv}av).
Tray::Item readItem(const QDBusArgument& argument) {
    Tray::Item item;
    QVariantMap properties;
    argument.beginStructure();
    argument >> item.id >> properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        item.children.push_back(readItem(child.variant().value<QDBusArgument>()));
    }
    argument.endArray();
    argument.endStructure();
    item.label = properties["label"].toString().toStdString();
    item.isEnabled = properties.value("enabled", true).toBool();
    item.hasIcon = properties.contains("icon-data") || properties.contains("icon-name");
    if (properties.contains("toggle-type"))
        item.checked = properties["toggle-state"].toInt() == 1;
    return item;
}

const Tray::Item* find(const std::vector<Tray::Item>& items, const std::string& label) {
    for (const Tray::Item& item : items) {
        if (item.label == label)
            return &item;
        if (const Tray::Item* const found = find(item.children, label))
            return found;
    }
    return nullptr;
}

} // namespace

std::optional<std::string> Tray::missing() {
    return Command::exists("xfce4-panel") ? std::nullopt
                                          : std::optional<std::string>("xfce4-panel");
}

Tray::Tray(DesktopSession& session, bool isDark)
    : m_session(session), m_panel(startPanel(session, isDark)) {
    if (!eventually([this] { return place().has_value() && m_session.hasService(kWatcher); }))
        throw std::runtime_error("no panel comes");
}

int Tray::icons() const {
    const BusObject watcher{kWatcher, "/StatusNotifierWatcher", kWatcher};
    return static_cast<int>(
        property(m_session, watcher, "RegisteredStatusNotifierItems").toStringList().size());
}

std::optional<QRect> Tray::place() const {
    const auto panel = m_session.screen().find(
        [](const SeenWindow& window) { return window.className == "Xfce4-panel"; });
    return panel ? std::optional(panel->frame) : std::nullopt;
}

BusObject Tray::menuOfFirst() const {
    const BusObject watcher{kWatcher, "/StatusNotifierWatcher", kWatcher};
    const QString name =
        property(m_session, watcher, "RegisteredStatusNotifierItems").toStringList().value(0);
    const QString service = name.section('/', 0, 0);
    const QString path = "/" + name.section('/', 1);
    const auto menu = property(m_session, {service, path, kItem}, "Menu").value<QDBusObjectPath>();
    return {service, menu.path(), "com.canonical.dbusmenu"};
}

std::vector<Tray::Item> Tray::menu() const {
    const BusObject menu = menuOfFirst();
    m_session.call(menu, "AboutToShow", {0});
    return readItem(m_session.call(menu, "GetLayout", {0, -1, QStringList()})
                        .at(1)
                        .value<QDBusArgument>())
        .children;
}

Tray::Item Tray::item(const std::string& label) const {
    const auto all = menu();
    const Item* const item = find(all, label);
    if (item == nullptr)
        throw std::runtime_error("the menu has no " + label);
    return *item;
}

bool Tray::has(const std::string& label) const {
    return find(menu(), label) != nullptr;
}

void Tray::choose(const std::string& label) const {
    m_session.call(menuOfFirst(), "Event",
                   {item(label).id, "clicked", QVariant::fromValue(QDBusVariant("")), 0U});
}

} // namespace vexmoor::test
