#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QStringList>

#include <stdexcept>

namespace vexmoor::test {

/// A thumbnail service that makes no previews; the test sets its replies.
class FakeThumbnailer : public QObject, public QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.thumbnails.Thumbnailer1")

  public:
    explicit FakeThumbnailer(QDBusConnection bus) : m_bus(std::move(bus)) {
        if (!m_bus.registerObject("/org/freedesktop/thumbnails/Thumbnailer1", this,
                                  QDBusConnection::ExportAllContents) ||
            !m_bus.registerService(kName))
            throw std::runtime_error("no fake thumbnailer: " +
                                     m_bus.lastError().message().toStdString());
    }
    ~FakeThumbnailer() override { m_bus.unregisterService(kName); }

    bool answers = true;
    bool refuses = false;
    QStringList asked; ///< requested URIs with type, flavour and scheduler

  public slots:
    QStringList GetSupported(QStringList& mimeTypes) {
        mimeTypes = QStringList{"image/jpeg"};
        asked << "supported";
        return {"file"};
    }
    uint Queue(const QStringList& uris, const QStringList& mimeTypes, const QString& flavour,
               const QString& scheduler, uint) {
        asked << uris.join(' ') + ' ' + mimeTypes.join(' ') + ' ' + flavour + ' ' + scheduler;
        setDelayedReply(!answers);
        if (refuses)
            sendErrorReply(QDBusError::InternalError, "no");
        return 7;
    }

  signals:
    void Ready(uint handle, const QStringList& uris);
    void Error(uint handle, const QStringList& uris, int code, const QString& message);
    void Finished(uint handle);

  private:
    static constexpr const char* kName = "org.freedesktop.thumbnails.Thumbnailer1";

    QDBusConnection m_bus;
};

} // namespace vexmoor::test
