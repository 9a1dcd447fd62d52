#pragma once

#include "MimeIcons.h"
#include "ThumbnailCache.h"
#include "Thumbnailer.h"

#include "intake/Ports.h"

#include <QObject>

#include <chrono>

namespace vexmoor {

/// Pictures of what is about to be fed: its preview where the desktop has one or makes one in time,
/// else the icon of its kind. All pictures are ImagePicture of at most 128 pixels a side. An image
/// of the user's own is never decoded here.
class Thumbnail : public QObject, public Thumbnails {
    Q_OBJECT

  public:
    using Milliseconds = std::chrono::milliseconds;

    /// How long each form waits for a preview before it settles for the icon.
    struct Deadlines {
        Milliseconds load{600};
        Milliseconds loadNow{2000};
    };

    /// Runs a job on the main thread when a time has passed, unless the context is gone by then.
    using Timer = std::function<void(Milliseconds, QObject* context, std::function<void()>)>;

    Thumbnail(const QDBusConnection& bus, ThumbnailCache cache, Deadlines deadlines,
              Timer timer = startTimer);

    /// Previews of this user's session; the service is started ahead of the first need.
    static std::unique_ptr<Thumbnail> forSession();

    /// Main thread only. A preview that comes too late is dropped.
    void load(const Path& item, std::function<void(PicturePointer)> completion) override;

    /// Not on the main thread, which it needs: there it ends the program.
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
