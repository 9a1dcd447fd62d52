#include "thumbnails/ThumbnailCache.h"

#include "Previews.h"

#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <functional>

namespace vexmoor {
namespace {

using test::Preview;

struct ThumbnailCacheTest : testing::Test {
    test::TemporaryDirectory folder;
    Path item = folder.write("photo.jpg", "not decoded");
    Path cacheHome = folder / "cache";
    ThumbnailCache cache{cacheHome};
};

TEST_F(ThumbnailCacheTest, FindsThePreviewOfTheCurrentFile) {
    EXPECT_FALSE(cache.find(item));
    Preview{.item = item, .size = {256, 100}, .colour = Qt::blue}.save(cacheHome, "large");
    const auto large = cache.find(item);
    ASSERT_TRUE(large);
    EXPECT_EQ(large->size(), QSize(128, 50));
    EXPECT_EQ(large->pixelColor(64, 25), QColor(Qt::blue));
    Preview{.item = item}.save(cacheHome);
    const auto normal = cache.find(item);
    ASSERT_TRUE(normal) << "the smaller one needs no scaling";
    EXPECT_EQ(normal->size(), QSize(96, 128));
    EXPECT_EQ(normal->pixelColor(0, 0), QColor(Qt::red));
    std::filesystem::remove(item);
    EXPECT_FALSE(cache.find(item));
}

TEST_F(ThumbnailCacheTest, ComparesTheTimeAtItsWrittenPrecision) {
    const timespec times[]{{5, 20'000'000}, {5, 20'000'000}};
    ASSERT_EQ(::utimensat(AT_FDCWD, item.c_str(), times, 0), 0);
    for (const auto& [changed, found] :
         std::vector<std::pair<const char*, bool>>{{"5", true},
                                                   {"5.020000", true},
                                                   {"5.02", true},
                                                   {"5.2", false},
                                                   {"5.020001", false},
                                                   {"4", false},
                                                   {"", false},
                                                   {"50", false}}) {
        Preview{.item = item, .changed = changed}.save(cacheHome);
        EXPECT_EQ(cache.find(item).has_value(), found) << changed;
    }
}

TEST_F(ThumbnailCacheTest, NamesPreviewsLikeDesktopPrograms) {
    EXPECT_EQ(ThumbnailCache::uriOf("/a b/c&d=e:f@g+h$i,j"), "file:///a%20b/c&d=e:f@g+h$i,j");
    EXPECT_EQ(ThumbnailCache::uriOf("/%;?#[]\"<>|^`{}\\"),
              "file:///%25%3B%3F%23%5B%5D%22%3C%3E%7C%5E%60%7B%7D%5C");
    EXPECT_EQ(ThumbnailCache::uriOf("/-_.!~*'()/\xc3\xa9\xff\n"), "file:///-_.!~*'()/%C3%A9%FF%0A");
}

TEST_F(ThumbnailCacheTest, RejectsInvalidPreviews) {
    const Preview good{.item = item};
    const auto write = [&](const QByteArray& bytes) {
        folder.write(std::filesystem::relative(good.place(cacheHome), folder.path()),
                     {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    };
    // A sound header, but of 60000 by 60000 pixels.
    QByteArray huge = good.png();
    huge.replace(16, 17, QByteArray("\0\0\xEA\x60\0\0\xEA\x60\x08\x06\0\0\0\x80\xd2\x75\x42", 17));
    const std::vector<std::pair<const char*, std::function<void()>>> entries{
        {"of a former state", [&] { Preview{.item = item, .changed = "12345"}.save(cacheHome); }},
        {"of another file", [&] { Preview{.item = item, .uri = "file:///b"}.save(cacheHome); }},
        {"larger than they are",
         [&] {
             Preview{.item = item, .size = {129, 1}}.save(cacheHome);
         }},
        {"huge", [&] { write(huge); }},
        {"garbage", [&] { write("\x89PNG\r\n\x1a\n and then something else"); }},
        {"another format", [&] { write("P6 4 4 255 " + QByteArray(48, 'x')); }},
        {"cut off", [&] { write(good.png().chopped(40)); }},
        {"empty", [&] { write({}); }},
        {"a large file", [&] { write(good.png() + QByteArray(2 << 20, 'x')); }},
        {"a link",
         [&] {
             good.save(folder / "elsewhere");
             std::filesystem::create_symlink(good.place(folder / "elsewhere"),
                                             good.place(cacheHome));
         }},
        {"a pipe", [&] { ASSERT_EQ(::mkfifo(good.place(cacheHome).c_str(), 0600), 0); }},
        {"a folder", [&] { std::filesystem::create_directory(good.place(cacheHome)); }},
    };
    for (const auto& [what, make] : entries) {
        SCOPED_TRACE(what);
        std::filesystem::remove_all(cacheHome);
        std::filesystem::create_directories(good.place(cacheHome).parent_path());
        make();
        ASSERT_TRUE(
            std::filesystem::exists(std::filesystem::symlink_status(good.place(cacheHome))));
        EXPECT_FALSE(cache.find(item));
    }
    std::filesystem::remove_all(cacheHome);
    good.save(cacheHome);
    EXPECT_TRUE(cache.find(item));
}

} // namespace
} // namespace vexmoor
