#pragma once

#include "MimeIcons.h"
#include "ThumbnailCache.h"

#include "disposal/Sacrifice.h"

#include <QObject>
#include <QThreadPool>

#include <functional>

namespace vexmoor {

/// A picture for a list; null where there is none.
struct ItemPicture {
    QImage image;
    bool isPreview = false; ///< of the contents; else the icon of the item's kind
};

/// Pictures of what was fed, wherever it is now: the preview that the desktop's cache has of it,
/// else the icon of its kind. No preview is made. Main thread; files are looked at on a thread of
/// its own, so that a volume that does not answer holds nothing up but the pictures.
class BinnedPictures : public QObject {
    Q_OBJECT

  public:
    using Completion = std::function<void(const ItemPicture&)>;

    explicit BinnedPictures(ThumbnailCache cache = ThumbnailCache());
    ~BinnedPictures() override;

    /// The completion is called once, later; not after this is gone.
    void load(const Sacrifice& item, Completion completion);

  private:
    ThumbnailCache m_cache;
    MimeIcons m_icons;
    QThreadPool m_worker; ///< last, so that it ends first
};

} // namespace vexmoor
