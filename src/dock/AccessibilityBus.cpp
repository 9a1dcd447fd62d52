#include "AccessibilityBus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace vexmoor {
namespace {

constexpr int kTimeoutMilliseconds = 2000;

QString service() {
    return QStringLiteral("org.a11y.Bus");
}

QDBusPendingCall addressOf(const QDBusConnection& session) {
    return session.asyncCall(QDBusMessage::createMethodCall(
                                 service(), QStringLiteral("/org/a11y/bus"),
                                 QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")),
                             kTimeoutMilliseconds);
}

bool isAnswer(const QDBusPendingCall& call) {
    const QDBusPendingReply<QString> reply = call;
    return reply.isValid() && !reply.value().isEmpty();
}

} // namespace

AccessibilityBus::AccessibilityBus(QDBusConnection session, QObject* parent)
    : QObject(parent), m_session(std::move(session)), m_watcher(service(), m_session) {
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &AccessibilityBus::ask);
    connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { setAnswers(false); });
    ask();
}

void AccessibilityBus::ask() {
    auto* const call = new QDBusPendingCallWatcher(addressOf(m_session), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        setAnswers(isAnswer(*call));
    });
}

bool AccessibilityBus::askNow() {
    QDBusPendingCall call = addressOf(m_session);
    call.waitForFinished();
    setAnswers(isAnswer(call));
    return m_answers;
}

void AccessibilityBus::setAnswers(bool answers) {
    if (m_answers == answers)
        return;
    m_answers = answers;
    emit answersChanged(answers);
}

} // namespace vexmoor
