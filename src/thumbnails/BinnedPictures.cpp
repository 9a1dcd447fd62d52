#include "BinnedPictures.h"

namespace vexmoor {
namespace {

/// The worker's result.
struct Seen {
    std::optional<QImage> preview;
    QString type;
};

Seen look(const ThumbnailCache& cache, const Sacrifice& item) {
    const std::string name = item.original ? lastComponent(*item.original) : item.name;
    std::optional<Path> place;
    if (item.canRestore())
        place = *item.trashed;
    else if (item.restored && item.original)
        place = *item.original;
    if (!place)
        return {{}, MimeIcons::typeOfFileNamed(name)};
    // The preview was usually made before the item moved to the Bin.
    auto preview = cache.find(*place, *item.original);
    if (!preview)
        preview = cache.find(*place);
    const QString type = MimeIcons::typeOf(*place);
    const bool isFolder = type == QStringLiteral("inode/directory");
    // The name in the Bin may differ from the original.
    return {std::move(preview), isFolder ? type : MimeIcons::typeOfFileNamed(name)};
}

} // namespace

BinnedPictures::BinnedPictures(ThumbnailCache cache) : m_cache(std::move(cache)) {
    m_worker.setMaxThreadCount(1);
}

BinnedPictures::~BinnedPictures() {
    m_worker.clear();
}

void BinnedPictures::load(const Sacrifice& item, Completion completion) {
    m_worker.start([this, item, completion = std::move(completion)] {
        Seen seen = look(m_cache, item);
        QMetaObject::invokeMethod(
            this,
            [this, seen = std::move(seen), completion] {
                if (seen.preview)
                    completion({*seen.preview, true});
                else
                    completion({m_icons.iconOfType(seen.type), false});
            },
            Qt::QueuedConnection);
    });
}

} // namespace vexmoor
