#pragma once

#include "MimeIcons.h"
#include "ThumbnailCache.h"

#include "disposal/Sacrifice.h"

#include <QObject>
#include <QThreadPool>

#include <functional>

namespace vexmoor {

/// A picture for a list; null if there is none.
struct ItemPicture {
    QImage image;
    bool isPreview = false; ///< whether it shows the contents instead of the icon of the file type
};

/// Loads pictures of recorded items, wherever they are now: the preview in the desktop's cache,
/// otherwise the icon of the file type. Makes no previews. Main thread only; a worker thread
/// accesses the files, so that an unresponsive volume delays only pictures.
class BinnedPictures : public QObject {
    Q_OBJECT

  public:
    using Completion = std::function<void(const ItemPicture&)>;

    explicit BinnedPictures(ThumbnailCache cache = ThumbnailCache());
    ~BinnedPictures() override;

    /// Calls the completion once, later, unless this object is destroyed first.
    void load(const Sacrifice& item, Completion completion);

  private:
    ThumbnailCache m_cache;
    MimeIcons m_icons;
    QThreadPool m_worker; ///< last member, so that it is destroyed first
};

} // namespace vexmoor
