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

/// Services that the program uses are missing, or exit while it runs.
struct SurroundingsTest : DesktopTest {
    Path picture(const std::string& name) {
        const Path file = session->write(name, "");
        QImage image(3000, 2000, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        image.save(QString::fromStdString(file), "png");
        return file;
    }
    /// Feeds a picture by a second start; true if it is gone and recorded.
    [[nodiscard]] bool feeds(const std::string& name) {
        const auto before = cauldron->history().size();
        const Path item = picture(name);
        return cauldron->feed({item}) == 0 && isGone(item) && cauldron->records(before + 1);
    }
    /// True if the screen does not change for longer than the pot's frame interval.
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

TEST_F(SurroundingsTest, FeedsWithoutSoundNotificationsAndThumbnails) {
    openSession({.sound = false, .notifications = false, .thumbnails = false});
    start();
    EXPECT_TRUE(feeds("one.png"));
    EXPECT_FALSE(cauldron->isAlerting());
    EXPECT_EQ(quit(), 0);
}

TEST_F(SurroundingsTest, FeedsWithoutASessionBus) {
    openSession();
    const Path item = picture("one.png");
    start({item}, kNoBus);
    EXPECT_TRUE(isGone(item));
    EXPECT_TRUE(cauldron->records(1));
    EXPECT_FALSE(cauldron->isAlerting());
    EXPECT_EQ(quit(), 0);
}

TEST_F(SurroundingsTest, DoesNotWaitForAHangingSoundServer) {
    openSession();
    start();
    session->sound().stop();
    EXPECT_TRUE(feeds("one.png"));
    EXPECT_TRUE(feeds("two.png"));
    EXPECT_EQ(quit(), 0);
}

TEST_F(SurroundingsTest, StopsAnimatingWhileTheScreenIsLocked) {
    openSession({.onboarded = false});
    start({}); // the walkthrough is animated too
    ASSERT_TRUE(eventually([&] { return cauldron->statsWindow().has_value(); }));
    session->bus().registerService(kScreenSaver);
    EXPECT_FALSE(standsStill());
    tellScreenSaver(true);
    EXPECT_TRUE(eventually([&] { return standsStill(); }));
    tellScreenSaver(false);
    EXPECT_TRUE(eventually([&] { return !standsStill(); }));
}

TEST_F(SurroundingsTest, ContinuesWhenServicesExitOneAfterAnother) {
    constexpr const char* kThumbnailer = "org.freedesktop.thumbnails.Thumbnailer1";
    openSession();
    start();
    EXPECT_TRUE(feeds("all-alive.png"));
    session->endNotifications();
    EXPECT_TRUE(feeds("no-notifications.png"));
    const auto thumbnailerRuns = [&] {
        return eventually([&] {
            session->bus().interface()->startService(
                kThumbnailer); // the service may have exited again immediately
            return session->hasService(kThumbnailer);
        });
    };
    ASSERT_TRUE(thumbnailerRuns());
    session->signal(kThumbnailer, SIGKILL);
    EXPECT_TRUE(feeds("new-thumbnailer.png"));
    ASSERT_TRUE(thumbnailerRuns()) << "a busy machine may start it too late";
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
