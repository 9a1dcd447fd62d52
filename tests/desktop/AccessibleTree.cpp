#include "AccessibleTree.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>

#include <stdexcept>

namespace vexmoor::test {
namespace {

const QString kAccessible = QStringLiteral("org.a11y.atspi.Accessible");
constexpr int kShowingBit = 25;
constexpr int kEnabledBit = 8;
constexpr int kCheckedBit = 4;

QString addressFrom(const QDBusConnection& session) {
    const auto reply = session.call(QDBusMessage::createMethodCall("org.a11y.Bus", "/org/a11y/bus",
                                                                   "org.a11y.Bus", "GetAddress"));
    if (reply.arguments().isEmpty() || reply.type() != QDBusMessage::ReplyMessage)
        throw std::runtime_error("no accessibility bus: " + reply.errorMessage().toStdString());
    return reply.arguments().at(0).toString();
}

} // namespace

AccessibleTree::AccessibleTree(const QDBusConnection& session)
    : m_connection(addressFrom(session)) {
    QDBusConnection::connectToBus(m_connection, m_connection);
}

AccessibleTree::~AccessibleTree() {
    QDBusConnection::disconnectFromBus(m_connection);
}

std::vector<AccessibleElement> AccessibleTree::elementsOf(const std::string& program) const {
    std::vector<AccessibleElement> all;
    for (const Reference& application :
         childrenOf({"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"}))
        if (nameOf(application) == program)
            collect(application, all);
    return all;
}

/// An element that was removed in the meantime returns no properties.
QList<QVariant> AccessibleTree::ask(const Reference& element, const QString& interface,
                                    const QString& method, const QList<QVariant>& arguments) const {
    auto message = QDBusMessage::createMethodCall(element.service, element.path, interface, method);
    message.setArguments(arguments);
    const auto reply = QDBusConnection(m_connection).call(message);
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments() : QList<QVariant>{};
}

std::vector<AccessibleTree::Reference> AccessibleTree::childrenOf(const Reference& element) const {
    std::vector<Reference> children;
    const auto answer = ask(element, kAccessible, "GetChildren");
    if (answer.isEmpty())
        return children;
    const auto list = answer.at(0).value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        Reference child;
        QDBusObjectPath path;
        list.beginStructure();
        list >> child.service >> path;
        list.endStructure();
        child.path = path.path();
        children.push_back(child);
    }
    list.endArray();
    return children;
}

std::string AccessibleTree::nameOf(const Reference& element) const {
    return propertyOf(element, "Name");
}

std::string AccessibleTree::propertyOf(const Reference& element, const char* property) const {
    const auto answer =
        ask(element, "org.freedesktop.DBus.Properties", "Get", {kAccessible, property});
    return answer.isEmpty() ? std::string()
                            : answer.at(0).value<QDBusVariant>().variant().toString().toStdString();
}

void AccessibleTree::collect(const Reference& element, std::vector<AccessibleElement>& all) const {
    AccessibleElement found;
    found.name = nameOf(element);
    found.description = propertyOf(element, "Description");
    if (const auto role = ask(element, kAccessible, "GetRoleName"); !role.isEmpty())
        found.role = role.at(0).toString();
    if (const auto state = ask(element, kAccessible, "GetState"); !state.isEmpty()) {
        const auto words = qdbus_cast<QList<uint>>(state.at(0).value<QDBusArgument>());
        const uint states = words.value(0);
        found.isShowing = (states >> kShowingBit & 1U) != 0;
        found.isEnabled = (states >> kEnabledBit & 1U) != 0;
        found.isChecked = (states >> kCheckedBit & 1U) != 0;
    }
    const auto extents = ask(element, "org.a11y.atspi.Component", "GetExtents", {0U});
    if (!extents.isEmpty()) {
        const auto box = extents.at(0).value<QDBusArgument>();
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
        box.beginStructure();
        box >> x >> y >> width >> height;
        box.endStructure();
        found.place = {x, y, width, height};
    }
    all.push_back(found);
    for (const Reference& child : childrenOf(element))
        collect(child, all);
}

} // namespace vexmoor::test
