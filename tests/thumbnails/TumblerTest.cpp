#include "support/ConnectedBus.h"
#include "support/MainLoop.h"
#include "support/TemporaryDirectory.h"
#include "thumbnails/ImagePicture.h"
#include "thumbnails/Thumbnail.h"

#include <QImage>

#include <gtest/gtest.h>

namespace vexmoor {
namespace {

bool isInstalled() {
    return std::filesystem::exists(
        "/usr/share/dbus-1/services/org.xfce.Tumbler.Thumbnailer1.service");
}

TEST(Tumbler, MakesAPreviewThatIsFoundInTheCache) {
    if (!isInstalled())
        GTEST_SKIP() << "tumbler is not installed";
    const test::TemporaryDirectory folder;
    test::ConnectedBus bus(test::PrivateBus::Services::installed); // activates the service
    const auto client = bus.connect("client");
    const Path item = folder / "wide & 100% blue.png";
    QImage picture(600, 300, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    ASSERT_TRUE(picture.save(QString::fromStdString(item)));

    const ThumbnailCache cache(bus.folder() / "cache");
    Thumbnail thumbnail(client, cache, {.load = std::chrono::seconds(30)});
    std::optional<QImage> shown;
    thumbnail.load(item,
                   [&](const PicturePointer& found) { shown = imageOf(found).value_or(QImage()); });
    ASSERT_TRUE(test::eventuallyInLoop([&] { return shown.has_value(); }));
    EXPECT_EQ(shown->size(), QSize(128, 64));
    EXPECT_EQ(shown->pixelColor(64, 32), QColor(Qt::blue));
    EXPECT_TRUE(cache.find(item));
}

} // namespace
} // namespace vexmoor
