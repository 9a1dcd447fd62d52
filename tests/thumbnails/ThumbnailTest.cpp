#include "thumbnails/Thumbnail.h"

#include "FakeThumbnailer.h"
#include "Previews.h"

#include "support/ConnectedBus.h"
#include "support/MainLoop.h"
#include "support/TemporaryDirectory.h"
#include "thumbnails/ImagePicture.h"

#include <QIcon>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace vexmoor {
namespace {

using test::eventuallyInLoop;
using test::FakeThumbnailer;
using test::Preview;

/// Writes an icon theme of coloured squares: folders blue, any file green, text black and too
/// large.
void writeTheme(const test::TemporaryDirectory& folder) {
    folder.write("flat/index.theme",
                 "[Icon Theme]\nName=flat\nDirectories=256\n[256]\nSize=256\nType=Threshold\n");
    std::filesystem::create_directories(folder / "flat/256");
    const auto icon = [&folder](const std::string& name, QColor colour, int side) {
        QImage image(side, side, QImage::Format_ARGB32);
        image.fill(colour);
        ASSERT_TRUE(image.save(QString::fromStdString(folder / "flat/256" / (name + ".png"))));
    };
    icon("folder", Qt::blue, 256);
    icon("text-x-generic", Qt::green, 256);
    icon("text-html", Qt::black, 256);
    QIcon::setThemeSearchPaths({QString::fromStdString(folder.path())});
    QIcon::setThemeName("flat");
}

/// Describes a picture by its size and its centre's colour.
std::string described(const PicturePointer& picture) {
    const auto image = imageOf(picture);
    if (!image)
        return "nothing";
    return QString("%1x%2 %3")
        .arg(image->width())
        .arg(image->height())
        .arg(image->pixelColor(image->rect().center()).name())
        .toStdString();
}

const std::string kFileIcon = "128x128 #00ff00";
const std::string kFolderIcon = "128x128 #0000ff";
const std::string kPreview = "96x128 #ff0000";

class ThumbnailTest : public testing::Test {
  protected:
    void SetUp() override {
        writeTheme(m_folder);
        m_fake.emplace(m_bus.connect("service"));
        m_thumbnail.emplace(m_bus.connect("client"), ThumbnailCache(m_cacheHome), m_deadlines,
                            [this](std::chrono::milliseconds delay, QObject*, auto job) {
                                EXPECT_EQ(delay.count(), 600);
                                m_deadlineJobs.push_back(std::move(job));
                            });
        ASSERT_TRUE(eventuallyInLoop([this] { return !m_fake->asked.isEmpty(); }));
        EXPECT_EQ(m_fake->asked.takeFirst(), "supported");
        deliverMessages();
    }

    static void deliverMessages() { test::deliverMessages({"service", "client"}); }

    void load(const Path& item) {
        m_thumbnail->load(item, [this](const PicturePointer& picture) {
            EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
            m_answers.push_back(described(picture));
        });
    }

    void loadAndWaitForTheQuestion(const Path& item) {
        load(item);
        ASSERT_TRUE(eventuallyInLoop([this] { return !m_fake->asked.isEmpty(); }));
        EXPECT_EQ(m_answers, Answers{});
    }

    void passDeadlines() {
        for (const auto& job : std::exchange(m_deadlineJobs, {}))
            job();
    }

    [[nodiscard]] bool answered() const {
        return eventuallyInLoop([this] { return !m_answers.empty(); });
    }

    [[nodiscard]] QStringList addressOf(const Path& item) const {
        return {QString::fromStdString(ThumbnailCache::uriOf(item))};
    }

    using Answers = std::vector<std::string>;

    test::TemporaryDirectory m_folder;
    test::ConnectedBus m_bus;
    Path m_cacheHome = m_folder / "cache";
    Path m_photo = m_folder.write("photo of me.jpg", "not decoded");
    Thumbnail::Deadlines m_deadlines;
    std::vector<std::function<void()>> m_deadlineJobs;
    std::optional<FakeThumbnailer> m_fake;
    std::optional<Thumbnail> m_thumbnail;
    Answers m_answers;
};

TEST_F(ThumbnailTest, ReturnsACachedPreviewImmediately) {
    Preview{.item = m_photo}.save(m_cacheHome);
    load(m_photo);
    EXPECT_EQ(m_answers, Answers{kPreview});
}

TEST_F(ThumbnailTest, RequestsAndReturnsAPreview) {
    loadAndWaitForTheQuestion(m_photo);
    EXPECT_EQ(m_fake->asked,
              (QStringList{addressOf(m_photo).first() + " image/jpeg normal foreground"}));
    emit m_fake->Ready(99, {"file:///of/another"});
    Preview{.item = m_photo}.save(m_cacheHome);
    emit m_fake->Ready(7, addressOf(m_photo));
    ASSERT_TRUE(answered());
    emit m_fake->Finished(7);
    passDeadlines();
    load(m_folder / "letter");
    EXPECT_EQ(m_answers, (Answers{kPreview, kFileIcon})) << "each completion is called once";
}

TEST_F(ThumbnailTest, ReturnsTheIconIfNoPreviewCanBeMade) {
    const std::vector<std::pair<const char*, std::function<void()>>> answers{
        {"an error", [&] { emit m_fake->Error(7, addressOf(m_photo), 4, "unsupported"); }},
        {"its end alone", [&] { emit m_fake->Finished(7); }},
        {"a preview that is none", [&] { emit m_fake->Ready(7, addressOf(m_photo)); }},
        {"too late", [&] { passDeadlines(); }},
        {"dead", [&] { m_fake.reset(); }},
    };
    for (const auto& [what, answer] : answers) {
        SCOPED_TRACE(what);
        m_answers.clear();
        m_fake->asked.clear();
        loadAndWaitForTheQuestion(m_photo);
        deliverMessages();
        answer();
        ASSERT_TRUE(answered());
        EXPECT_EQ(m_answers, Answers{kFileIcon});
        passDeadlines();
        EXPECT_EQ(m_answers, Answers{kFileIcon}) << "once";
    }
    m_answers.clear();
    load(m_photo);
    ASSERT_TRUE(answered()) << "the service exited";
    EXPECT_EQ(m_answers, Answers{kFileIcon});
}

TEST_F(ThumbnailTest, ReturnsTheIconIfTheServiceFailsOrHangs) {
    m_fake->refuses = true;
    load(m_photo);
    ASSERT_TRUE(answered());
    m_answers.clear();
    m_fake->asked.clear();
    m_fake->refuses = false;
    m_fake->answers = false;
    loadAndWaitForTheQuestion(m_photo);
    passDeadlines();
    EXPECT_EQ(m_answers, Answers{kFileIcon});
    Preview{.item = m_photo}.save(m_cacheHome);
    emit m_fake->Ready(7, addressOf(m_photo));
    deliverMessages();
    EXPECT_EQ(m_answers, Answers{kFileIcon}) << "the late preview is dropped";
}

TEST_F(ThumbnailTest, ReturnsTheIconForUnsupportedTypesWithoutARequest) {
    const std::vector<std::pair<Path, std::string>> items{
        {m_folder.path(), kFolderIcon},
        {m_folder.write("page.html", ""), "128x128 #000000"},
        {m_folder.write("no extension", "GIF89a"), kFileIcon},
        {m_folder.write("not \xff UTF-8.html", ""), "128x128 #000000"},
        {m_folder / "gone.txt", kFileIcon},
    };
    Answers expected;
    for (const auto& [item, icon] : items) {
        load(item);
        expected.push_back(icon);
    }
    EXPECT_EQ(m_answers, expected);
    EXPECT_EQ(m_fake->asked, QStringList());
}

TEST_F(ThumbnailTest, ReturnsTheIconImmediatelyWithoutABus) {
    Thumbnail alone(QDBusConnection("there is none"), ThumbnailCache(m_cacheHome), {});
    std::string shown;
    alone.load(m_photo, [&](const PicturePointer& picture) { shown = described(picture); });
    EXPECT_EQ(shown, kFileIcon);
}

TEST_F(ThumbnailTest, LoadNowReturnsTheMainThreadsResult) {
    Preview{.item = m_photo}.save(m_cacheHome);
    std::atomic<bool> ended = false;
    std::string found;
    std::thread work([&] {
        found = described(m_thumbnail->loadNow(m_photo));
        ended = true;
    });
    EXPECT_TRUE(eventuallyInLoop([&] { return ended.load(); }));
    work.join();
    EXPECT_EQ(found, kPreview);
}

TEST_F(ThumbnailTest, LoadNowReturnsTheIconWhileTheMainThreadIsBusy) {
    Preview{.item = m_photo}.save(m_cacheHome);
    Thumbnail withoutTimeout(m_bus.connect("client"), ThumbnailCache(m_cacheHome), {.loadNow = {}});
    std::vector<std::string> found;
    std::thread([&] {
        for (const Path& item : {m_photo, m_folder.path()})
            found.push_back(described(withoutTimeout.loadNow(item)));
    }).join();
    EXPECT_EQ(found, (Answers{kFileIcon, kFolderIcon}));
    QCoreApplication::processEvents(); // the late reply must have no effect
}

TEST_F(ThumbnailTest, LoadNowAbortsOnTheMainThread) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(m_thumbnail->loadNow(m_photo), "main thread");
}

} // namespace
} // namespace vexmoor
