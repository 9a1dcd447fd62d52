#pragma once

#include <QDBusConnection>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <functional>
#include <vector>

namespace vexmoor {

/// The desktop's service that makes previews (org.freedesktop.thumbnails.Thumbnailer1), in a
/// process of its own. Main thread only; nothing waits for the service.
class Thumbnailer : public QObject {
    Q_OBJECT

  public:
    /// Told whether there is now a preview in the cache.
    using Completion = std::function<void(bool made)>;

    explicit Thumbnailer(const QDBusConnection& bus);

    /// Has the service started, which takes longest the first time, and learns what it can do.
    void warmUp();

    /// Asks for a preview. The completion is called once, later, on an answer or when the service
    /// goes; at once where the service cannot do that type, or there is no bus. A service that does
    /// not answer is waited for until it is given up.
    void request(const QString& uri, const QString& mimeType, Completion completion);

    /// Waits no longer for that address: a completion that is still to come is told there is none.
    void giveUp(const QString& uri) { complete(uri, false); }

  private slots:
    void ready(uint handle, const QStringList& uris);
    void error(uint handle, const QStringList& uris, int code, const QString& message);
    void finished(uint handle);

  private:
    void queue(const QString& uri, const QString& mimeType);
    void complete(const QString& uri, bool made);
    void giveUpAll();

    QDBusConnection m_bus;
    QHash<QString, std::vector<Completion>> m_waiting; ///< by address
    QHash<uint, QString> m_handles;                    ///< of what was asked, to its address
    QSet<QString> m_supported;                         ///< MIME types; empty until known
};

} // namespace vexmoor
