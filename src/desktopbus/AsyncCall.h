#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <functional>
#include <limits>

class QObject;

namespace vexmoor {

inline constexpr int kBusOwnTimeout = -1;
inline constexpr int kNoTimeout = std::numeric_limits<int>::max();

/// Sends the call without blocking. Passes the reply, which may be an error, to `answered` in the
/// context's thread, unless the context is destroyed first.
void callAsync(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
               std::function<void(const QDBusMessage& answer)> answered,
               int timeoutMilliseconds = kBusOwnTimeout);

[[nodiscard]] inline bool isAnswer(const QDBusMessage& message) {
    return message.type() == QDBusMessage::ReplyMessage;
}

} // namespace vexmoor
