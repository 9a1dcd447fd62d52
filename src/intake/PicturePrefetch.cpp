#include "PicturePrefetch.h"

#include <memory>

namespace vexmoor {

void prefetchPictures(Thumbnails& thumbnails, const std::vector<Path>& items,
                      std::function<void(ItemPictures)> done) {
    struct Prefetch {
        ItemPictures pictures;
        std::size_t awaited;
        std::function<void(ItemPictures)> done;

        void answered() {
            if (--awaited == 0)
                done(std::move(pictures));
        }
    };
    const auto prefetch = std::make_shared<Prefetch>(
        Prefetch{{}, items.size() + 1, std::move(done)}); // one for this function itself
    for (const auto& item : items)
        thumbnails.load(item, [prefetch, item](PicturePointer picture) {
            if (picture)
                prefetch->pictures[item.native()] = std::move(picture);
            prefetch->answered();
        });
    prefetch->answered();
}

} // namespace vexmoor
