#include "DesktopTest.h"
#include "FileManagerWindow.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QImage>

#include <chrono>

namespace vexmoor {
namespace {

using namespace test;

const BackgroundProgram::Environment kNoBus{{"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"}};

/// What the program works with is missing, or goes away while it runs.
struct SurroundingsTest : DesktopTest {
    Path picture(const std::string& name) {
        const Path file = session->write(name, "");
        QImage image(3000, 2000, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        image.save(QString::fromStdString(file), "png");
        return file;
    }
    /// Feeds a picture by a second start; whether it went and is on record.
    [[nodiscard]] bool feeds(const std::string& name) {
        const auto before = cauldron->history().size();
        const Path item = picture(name);
        return cauldron->feed({item}) == 0 && isGone(item) && cauldron->records(before + 1);
    }
    /// Whether the same is seen at every look, for longer than the pot rests between two frames.
    [[nodiscard]] bool standsStill() const {
        constexpr auto kLong = std::chrono::milliseconds(500);
        const QImage first = session->screen().picture();
        const auto start = std::chrono::steady_clock::now();
        do {
            if (session->screen().picture() != first)
                return false;
        } while (std::chrono::steady_clock::now() - start < kLong);
        return true;
    }
    void tellScreenSaver(bool active) {
        auto signal = QDBusMessage::createSignal("/ScreenSaver", kScreenSaver, "ActiveChanged");
        signal << active;
        session->bus().send(signal);
    }

    static constexpr const char* kScreenSaver = "org.freedesktop.ScreenSaver";
};

TEST_F(SurroundingsTest, TakesItemsWithoutSoundNotificationsAndPreviews) {
    openSession({.sound = false, .notifications = false, .thumbnails = false});
    start();
    EXPECT_TRUE(feeds("one.png"));
    EXPECT_FALSE(cauldron->isAlerting());
    EXPECT_EQ(quit(), 0);
}

TEST_F(SurroundingsTest, TakesItemsWithoutASessionBus) {
    openSession();
    const Path item = picture("one.png");
    start({item}, kNoBus);
    EXPECT_TRUE(isGone(item));
    EXPECT_TRUE(cauldron->records(1));
    EXPECT_FALSE(cauldron->isAlerting());
    EXPECT_EQ(quit(), 0);
}

TEST_F(SurroundingsTest, WaitsForNoSoundServerThatHangs) {
    openSession();
    start();
    session->sound().stop();
    EXPECT_TRUE(feeds("one.png"));
    EXPECT_TRUE(feeds("two.png"));
    EXPECT_EQ(quit(), 0);
}

TEST_F(SurroundingsTest, StandsStillWhileTheScreenIsLocked) {
    openSession({.onboarded = false});
    start({}); // the walkthrough moves, beside the tile
    ASSERT_TRUE(eventually([&] { return cauldron->statsWindow().has_value(); }));
    session->bus().registerService(kScreenSaver);
    EXPECT_FALSE(standsStill());
    tellScreenSaver(true);
    EXPECT_TRUE(eventually([&] { return standsStill(); }));
    tellScreenSaver(false);
    EXPECT_TRUE(eventually([&] { return !standsStill(); }));
}

TEST_F(SurroundingsTest, GoesOnWhenOneAfterTheOtherDies) {
    constexpr const char* kThumbnailer = "org.freedesktop.thumbnails.Thumbnailer1";
    openSession();
    start();
    EXPECT_TRUE(feeds("all-alive.png"));
    session->endNotifications();
    EXPECT_TRUE(feeds("no-notifications.png"));
    const auto thumbnailerRuns = [&] {
        return eventually([&] {
            session->bus().interface()->startService(kThumbnailer); // where it ended again at once
            return session->hasService(kThumbnailer);
        });
    };
    ASSERT_TRUE(thumbnailerRuns());
    session->signal(kThumbnailer, SIGKILL);
    EXPECT_TRUE(feeds("new-thumbnailer.png"));
    ASSERT_TRUE(thumbnailerRuns()) << "a burdened machine takes longer to start it than we wait";
    session->signal(kThumbnailer, SIGSTOP);
    EXPECT_TRUE(feeds("no-answer.png"));
    session->sound().die();
    EXPECT_TRUE(feeds("no-sound.png"));

    session->endBus();
    picture("Things/no-bus.png");
    FileManagerWindow window(*session, DrivenFileManager::kThunar, session->home() / "Things",
                             kNoBus);
    ASSERT_TRUE(window.selectAll(1));
    ASSERT_TRUE(window.dragSelection(cauldron->middle()));
    EXPECT_TRUE(cauldron->records(6));
    EXPECT_TRUE(std::filesystem::is_empty(session->home() / "Things"));
    EXPECT_FALSE(cauldron->isAlerting());
    EXPECT_EQ(quit(), 0);
}

} // namespace
} // namespace vexmoor
