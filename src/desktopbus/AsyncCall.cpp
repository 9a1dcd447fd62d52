#include "AsyncCall.h"

#include <QDBusPendingCallWatcher>

#include <utility>

namespace vexmoor {

void callAsync(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
               std::function<void(const QDBusMessage& answer)> answered, int timeoutMilliseconds) {
    auto* const watcher =
        new QDBusPendingCallWatcher(bus.asyncCall(call, timeoutMilliseconds), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [watcher, answered = std::move(answered)] {
                         watcher->deleteLater();
                         answered(watcher->reply());
                     });
}

} // namespace vexmoor
