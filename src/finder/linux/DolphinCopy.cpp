#include "DolphinCopy.h"

#include <QDBusMessage>
#include <QDBusReply>

#include <optional>

namespace vexmoor {

namespace {

constexpr int kTimeoutMilliseconds = 200;
constexpr int kMostWindows = 32;

std::optional<QVariant> ask(const QDBusConnection& session, const QString& service,
                            const QString& path, const char* method,
                            const QList<QVariant>& arguments = {}) {
    auto call = QDBusMessage::createMethodCall(service, path, QStringLiteral("org.kde.KMainWindow"),
                                               QString::fromLatin1(method));
    call.setArguments(arguments);
    const auto answer = session.call(call, QDBus::Block, kTimeoutMilliseconds);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty())
        return std::nullopt;
    return answer.arguments().constFirst();
}

} // namespace

bool copyInDolphin(const QDBusConnection& session, pid_t process, xcb_window_t window) {
    const QString service = QStringLiteral("org.kde.dolphin-%1").arg(process);
    for (int i = 1; i <= kMostWindows; ++i) {
        const QString path = QStringLiteral("/dolphin/Dolphin_%1").arg(i);
        const auto id = ask(session, service, path, "winId");
        if (!id && i > 1)
            return false; // numbers of closed windows are not reused, so later ones may exist
        if (id && id->toLongLong() == static_cast<qlonglong>(window))
            return ask(session, service, path, "activateAction", {QStringLiteral("edit_copy")})
                .value_or(QVariant())
                .toBool();
    }
    return false;
}

} // namespace vexmoor
