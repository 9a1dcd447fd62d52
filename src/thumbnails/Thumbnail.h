#pragma once

#include "MimeIcons.h"
#include "ThumbnailCache.h"
#include "Thumbnailer.h"

#include "intake/Ports.h"

#include <QObject>

#include <chrono>

namespace vexmoor {

/// Pictures of items about to be disposed of: the desktop's preview if there is one or one is made
/// in time, otherwise the icon of the file type. All pictures are ImagePicture of at most 128 × 128
/// pixels. The user's images are never decoded here.
class Thumbnail : public QObject, public Thumbnails {
    Q_OBJECT

  public:
    using Milliseconds = std::chrono::milliseconds;

    /// Timeouts after which the two forms use the icon instead of a preview.
    struct Deadlines {
        Milliseconds load{600};
        Milliseconds loadNow{2000};
    };

    /// Runs a job on the main thread after a delay, unless the context is destroyed first.
    using Timer = std::function<void(Milliseconds, QObject* context, std::function<void()>)>;

    Thumbnail(const QDBusConnection& bus, ThumbnailCache cache, Deadlines deadlines,
              Timer timer = startTimer);

    /// Creates an instance for the session bus and starts the thumbnail service in advance.
    static std::unique_ptr<Thumbnail> forSession();

    /// Main thread only. Drops a preview that arrives after the timeout.
    void load(const Path& item, std::function<void(PicturePointer)> completion) override;

    /// Blocks while the main thread loads the picture. Calling it on the main thread aborts the
    /// program.
    PicturePointer loadNow(const Path& item) override;

  private:
    static void startTimer(Milliseconds delay, QObject* context, std::function<void()> job);

    ThumbnailCache m_cache;
    MimeIcons m_icons;
    Thumbnailer m_thumbnailer;
    Deadlines m_deadlines;
    Timer m_timer;
};

} // namespace vexmoor
