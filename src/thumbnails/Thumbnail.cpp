#include "Thumbnail.h"

#include "ImagePicture.h"

#include <QThread>
#include <QTimer>

#include <condition_variable>
#include <mutex>

namespace vexmoor {
namespace {

PicturePointer pictureOf(QImage image) {
    return image.isNull() ? nullptr : std::make_shared<const ImagePicture>(std::move(image));
}

/// Holds the result that the work thread waits for.
struct Slot {
    std::mutex mutex;
    std::condition_variable filled;
    std::optional<PicturePointer> picture;
};

} // namespace

Thumbnail::Thumbnail(const QDBusConnection& bus, ThumbnailCache cache, Deadlines deadlines,
                     Timer timer)
    : m_cache(std::move(cache)), m_thumbnailer(bus), m_deadlines(deadlines),
      m_timer(std::move(timer)) {
    m_icons.iconOf({}); // loads the generic icons for knownIconOf()
    m_thumbnailer.warmUp();
}

std::unique_ptr<Thumbnail> Thumbnail::forSession() {
    return std::make_unique<Thumbnail>(QDBusConnection::sessionBus(), ThumbnailCache(),
                                       Deadlines());
}

void Thumbnail::load(const Path& item, std::function<void(PicturePointer)> completion) {
    const QImage icon = m_icons.iconOf(item);
    if (auto preview = m_cache.find(item)) {
        completion(pictureOf(*std::move(preview)));
        return;
    }
    const QString uri = QString::fromStdString(ThumbnailCache::uriOf(item));
    m_timer(m_deadlines.load, this, [this, uri] { m_thumbnailer.giveUp(uri); });
    m_thumbnailer.request(uri, MimeIcons::typeOf(item), [this, icon, item, completion](bool made) {
        const auto preview = made ? m_cache.find(item) : std::nullopt;
        completion(pictureOf(preview.value_or(icon)));
    });
}

PicturePointer Thumbnail::loadNow(const Path& item) {
    if (QThread::currentThread() == thread())
        qFatal("loadNow() must not be called on the main thread.");
    const auto slot = std::make_shared<Slot>();
    const auto fill = [slot](PicturePointer picture) {
        const std::lock_guard lock(slot->mutex);
        slot->picture = std::move(picture);
        slot->filled.notify_all();
    };
    QMetaObject::invokeMethod(
        this, [this, item, fill] { load(item, fill); }, Qt::QueuedConnection);
    std::unique_lock lock(slot->mutex);
    slot->filled.wait_for(lock, m_deadlines.loadNow, [&slot] { return slot->picture.has_value(); });
    return slot->picture ? *slot->picture : pictureOf(m_icons.knownIconOf(item));
}

void Thumbnail::startTimer(Milliseconds delay, QObject* context, std::function<void()> job) {
    QTimer::singleShot(delay, Qt::PreciseTimer, context, std::move(job));
}

} // namespace vexmoor
