#include "Thumbnailer.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

namespace vexmoor {
namespace {

const QString kService = QStringLiteral("org.freedesktop.thumbnails.Thumbnailer1");
const QString kPath = QStringLiteral("/org/freedesktop/thumbnails/Thumbnailer1");

QDBusMessage call(const char* method) {
    return QDBusMessage::createMethodCall(kService, kPath, kService, QLatin1String(method));
}

} // namespace

Thumbnailer::Thumbnailer(const QDBusConnection& bus) : m_bus(bus) {
    m_bus.connect(kService, kPath, kService, QStringLiteral("Ready"), this,
                  SLOT(ready(uint, QStringList)));
    m_bus.connect(kService, kPath, kService, QStringLiteral("Error"), this,
                  SLOT(error(uint, QStringList, int, QString)));
    m_bus.connect(kService, kPath, kService, QStringLiteral("Finished"), this,
                  SLOT(finished(uint)));
    const auto* const watcher =
        new QDBusServiceWatcher(kService, m_bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, &Thumbnailer::giveUpAll);
}

void Thumbnailer::warmUp() {
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call("GetSupported")), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<QStringList, QStringList> reply = *watcher;
        if (reply.isError()) // without a service, each request fails
            return;
        const QStringList types = reply.argumentAt<1>();
        m_supported = QSet<QString>(types.begin(), types.end());
    });
}

void Thumbnailer::request(const QString& uri, const QString& mimeType, Completion completion) {
    const bool isUnsupported = !m_supported.isEmpty() && !m_supported.contains(mimeType);
    if (isUnsupported || !m_bus.isConnected()) {
        completion(false);
        return;
    }
    auto& waiting = m_waiting[uri];
    waiting.push_back(std::move(completion));
    if (waiting.size() == 1)
        queue(uri, mimeType);
}

void Thumbnailer::queue(const QString& uri, const QString& mimeType) {
    QDBusMessage message = call("Queue");
    message << QStringList{uri} << QStringList{mimeType} << QStringLiteral("normal")
            << QStringLiteral("foreground") << 0U;
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, uri] {
        watcher->deleteLater();
        const QDBusPendingReply<uint> reply = *watcher;
        if (reply.isError())
            complete(uri, false);
        else if (m_waiting.contains(uri))
            m_handles.insert(reply.value(), uri);
    });
}

void Thumbnailer::ready(uint, const QStringList& uris) {
    for (const QString& uri : uris)
        complete(uri, true);
}

void Thumbnailer::error(uint, const QStringList& uris, int, const QString&) {
    for (const QString& uri : uris)
        complete(uri, false);
}

void Thumbnailer::finished(uint handle) {
    if (const auto uri = m_handles.constFind(handle); uri != m_handles.cend())
        complete(QString(*uri), false);
}

void Thumbnailer::complete(const QString& uri, bool made) {
    const std::vector<Completion> completions = m_waiting.take(uri);
    m_handles.removeIf([&uri](const auto& entry) { return entry.value() == uri; });
    for (const Completion& completion : completions)
        completion(made);
}

void Thumbnailer::giveUpAll() {
    for (const QString& uri : m_waiting.keys())
        giveUp(uri);
}

} // namespace vexmoor
