#include "thumbnails/BinnedPictures.h"

#include "Previews.h"

#include "support/MainLoop.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using test::eventuallyInLoop;
using test::Preview;

struct BinnedPicturesTest : testing::Test {
    test::TemporaryDirectory folder;
    Path cacheHome = folder / "cache";
    Path original = folder.write("photo.jpg", "not decoded");
    Path trashed = folder / "Trash/photo.2.jpg";
    BinnedPictures pictures{ThumbnailCache(cacheHome)};

    [[nodiscard]] Sacrifice binned() const {
        Sacrifice item;
        item.name = "photo.jpg";
        item.original = StoredPath(original);
        item.trashed = StoredPath(trashed);
        return item;
    }
    /// True if a preview is shown.
    bool isPreview(const Sacrifice& item) {
        std::optional<ItemPicture> picture;
        pictures.load(item, [&](const ItemPicture& loaded) { picture = loaded; });
        EXPECT_FALSE(picture) << "the call does not block";
        EXPECT_TRUE(eventuallyInLoop([&] { return picture.has_value(); }));
        return picture->isPreview && !picture->image.isNull();
    }
};

TEST_F(BinnedPicturesTest, FindsThePreviewMadeBeforeTheMove) {
    Preview{.item = original}.save(cacheHome);
    std::filesystem::create_directory(trashed.parent_path());
    std::filesystem::rename(original, trashed);
    EXPECT_TRUE(isPreview(binned()));

    Sacrifice lost = binned();
    lost.lost = true;
    EXPECT_FALSE(isPreview(lost)) << "the path may belong to another item now";
    Sacrifice restored = binned();
    restored.restored = Date::now();
    EXPECT_FALSE(isPreview(restored));
    std::filesystem::rename(trashed, original);
    EXPECT_TRUE(isPreview(restored));
    EXPECT_FALSE(isPreview(binned()));
}

TEST_F(BinnedPicturesTest, FindsThePreviewMadeInTheBin) {
    std::filesystem::create_directory(trashed.parent_path());
    std::filesystem::rename(original, trashed);
    EXPECT_FALSE(isPreview(binned()));
    Preview{.item = trashed}.save(cacheHome);
    EXPECT_TRUE(isPreview(binned()));
}

TEST_F(BinnedPicturesTest, DoesNotCallCompletionsAfterDestruction) {
    auto own = std::make_unique<BinnedPictures>(ThumbnailCache(cacheHome));
    own->load(binned(), [](const ItemPicture&) { ADD_FAILURE(); });
    own.reset();
    QCoreApplication::processEvents();
}

} // namespace
} // namespace vexmoor
