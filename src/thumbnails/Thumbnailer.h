#pragma once

#include <QDBusConnection>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <functional>
#include <vector>

namespace vexmoor {

/// A client of the desktop's thumbnail service (org.freedesktop.thumbnails.Thumbnailer1). Main
/// thread only; never blocks.
class Thumbnailer : public QObject {
    Q_OBJECT

  public:
    /// `made` is true if the cache now contains a preview.
    using Completion = std::function<void(bool made)>;

    explicit Thumbnailer(const QDBusConnection& bus);

    /// Starts the service, which is slow the first time, and reads its supported types.
    void warmUp();

    /// Requests a preview. Calls the completion once: later, after an answer or if the service
    /// exits; immediately if the type is not supported or there is no bus. There is no timeout; the
    /// caller uses giveUp().
    void request(const QString& uri, const QString& mimeType, Completion completion);

    /// Stops waiting for that URI: a pending completion is called with false.
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
    QHash<QString, std::vector<Completion>> m_waiting; ///< by URI
    QHash<uint, QString> m_handles;                    ///< service handle to URI
    QSet<QString> m_supported; ///< MIME types; empty until the service answered
};

} // namespace vexmoor
