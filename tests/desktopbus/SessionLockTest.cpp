#include "desktopbus/SessionLock.h"

#include "ActivatableService.h"
#include "FakeService.h"

#include "support/ConnectedBus.h"
#include "support/MainLoop.h"

#include <QDBusObjectPath>
#include <QDBusVariant>

namespace vexmoor {
namespace {

using test::eventuallyInLoop;
using test::FakeService;

/// A screen saver that emits its signals from a different path than it is queried at.
class FakeScreenSaver {
  public:
    FakeScreenSaver(const QDBusConnection& bus, const QString& name, bool active)
        : m_name(name), m_active(active),
          m_service(
              bus, name, [this](const QDBusMessage& call) { return answer(call); },
              "/" + QString(name).replace('.', '/')) {}

    void setActive(bool active) {
        m_active = active;
        m_service.emitSignal("/ScreenSaver", m_name, "ActiveChanged", {active});
    }

  private:
    [[nodiscard]] QDBusMessage answer(const QDBusMessage& call) const {
        return call.interface() == m_name && call.member() == "GetActive"
                   ? call.createReply(m_active)
                   : call.createErrorReply(QDBusError::UnknownMethod, call.member());
    }

    QString m_name;
    bool m_active;
    FakeService m_service;
};

/// A login manager with one session.
class FakeLogin {
  public:
    explicit FakeLogin(const QDBusConnection& bus, const QString& path = "/sessions/c1")
        : m_path(path), m_service(bus, "org.freedesktop.login1",
                                  [this](const QDBusMessage& call) { return answer(call); }) {}

    void setHint(bool hint) {
        locked = hint;
        changed(m_path, "org.freedesktop.login1.Session", {{"LockedHint", hint}}, {});
    }
    void changed(const QString& path, const QString& interface, const QVariantMap& values,
                 const QStringList& invalidated) {
        m_service.emitSignal(path, "org.freedesktop.DBus.Properties", "PropertiesChanged",
                             {interface, values, invalidated});
    }

    bool locked = false;

  private:
    [[nodiscard]] QDBusMessage answer(const QDBusMessage& call) const {
        const QString question = call.path() + ' ' + call.member() + ' ' +
                                 QVariant(call.arguments()).toStringList().join(' ');
        if (question == "/org/freedesktop/login1/session/auto Get "
                        "org.freedesktop.login1.Session Id")
            return call.createReply(QVariant::fromValue(QDBusVariant("c1")));
        if (question == "/org/freedesktop/login1 GetSession c1")
            return call.createReply(QVariant::fromValue(QDBusObjectPath(m_path)));
        if (question == m_path + " Get org.freedesktop.login1.Session LockedHint")
            return call.createReply(QVariant::fromValue(QDBusVariant(locked)));
        return call.createErrorReply(QDBusError::UnknownMethod, question);
    }

    QString m_path;
    FakeService m_service;
};

class SessionLockTest : public testing::Test {
  protected:
    FakeScreenSaver& startScreenSaver(const char* name, bool active = false) {
        m_screenSavers[name] =
            std::make_unique<FakeScreenSaver>(QDBusConnection("session server"), name, active);
        return *m_screenSavers[name];
    }

    void startLock() {
        m_lock.emplace(QDBusConnection("session client"), QDBusConnection("login client"));
        QObject::connect(&*m_lock, &SessionLock::lockedChanged, &*m_lock,
                         [this](bool locked) { m_changes.push_back(locked); });
    }

    [[nodiscard]] bool becomes(bool locked) {
        return eventuallyInLoop([this, locked] { return m_lock->isLocked() == locked; });
    }

    /// Waits until all messages have been delivered.
    static void deliverAll() {
        for (int round = 0; round < 4; ++round) // includes requests sent in response to replies
            test::deliverMessages(
                {"session server", "session client", "login server", "login client"});
    }

    test::ConnectedBus m_session{"session server", "session client"};
    test::ConnectedBus m_system{"login server", "login client"};
    std::map<std::string, std::unique_ptr<FakeScreenSaver>> m_screenSavers;
    std::optional<FakeLogin> m_login;
    std::optional<SessionLock> m_lock;
    std::vector<bool> m_changes;
};

class EveryScreenSaver : public SessionLockTest, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(SessionLockTest, EveryScreenSaver,
                         testing::Values("org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver",
                                         "org.mate.ScreenSaver", "org.cinnamon.ScreenSaver",
                                         "org.xfce.ScreenSaver"));

TEST_P(EveryScreenSaver, IsTrackedFromItsInitialStateToItsExit) {
    FakeScreenSaver& screenSaver = startScreenSaver(GetParam(), true);
    startLock();
    EXPECT_FALSE(m_lock->isLocked()) << "the call blocked";
    ASSERT_TRUE(becomes(true));
    screenSaver.setActive(false);
    ASSERT_TRUE(becomes(false));
    screenSaver.setActive(true);
    ASSERT_TRUE(becomes(true));
    m_screenSavers.clear();
    ASSERT_TRUE(becomes(false)) << "an exited service counts as unlocked";
    startScreenSaver(GetParam(), true);
    ASSERT_TRUE(becomes(true)) << "its successor was not queried";
    EXPECT_EQ(m_changes, (std::vector{true, false, true, false, true}));
}

TEST_F(SessionLockTest, IsLockedWhileAnyServiceReportsIt) {
    FakeScreenSaver& gnome = startScreenSaver("org.gnome.ScreenSaver");
    FakeScreenSaver& freedesktop = startScreenSaver("org.freedesktop.ScreenSaver");
    m_login.emplace(QDBusConnection("login server"));
    startLock();
    gnome.setActive(true);
    ASSERT_TRUE(becomes(true));
    freedesktop.setActive(true);
    m_login->setHint(true);
    deliverAll();
    gnome.setActive(false);
    deliverAll();
    freedesktop.setActive(false);
    deliverAll();
    EXPECT_EQ(m_changes, std::vector{true});
    m_login->setHint(false);
    EXPECT_TRUE(becomes(false));
}

TEST_F(SessionLockTest, IgnoresSignalsOfOtherPrograms) {
    FakeScreenSaver& screenSaver = startScreenSaver("org.gnome.ScreenSaver");
    m_login.emplace(QDBusConnection("login server"));
    startLock();
    deliverAll();
    for (const char* interface : {"org.gnome.ScreenSaver", "org.mate.ScreenSaver"}) {
        QDBusMessage forged = QDBusMessage::createSignal("/", interface, "ActiveChanged");
        QDBusConnection("session client").send(forged << true);
    }
    deliverAll();
    EXPECT_TRUE(m_changes.empty());
    screenSaver.setActive(true);
    EXPECT_TRUE(becomes(true));
}

TEST_F(SessionLockTest, FollowsTheHintOfTheLoginSession) {
    m_login.emplace(QDBusConnection("login server"));
    m_login->locked = true;
    startLock();
    ASSERT_TRUE(becomes(true)) << "its current state was not queried";
    m_login->setHint(false);
    ASSERT_TRUE(becomes(false));
    const QString session = "org.freedesktop.login1.Session";
    m_login->changed("/sessions/c2", session, {{"LockedHint", true}}, {});
    m_login->changed("/sessions/c1", "org.freedesktop.login1.User", {{"LockedHint", true}}, {});
    m_login->changed("/sessions/c1", session, {{"IdleHint", true}}, {});
    deliverAll();
    EXPECT_EQ(m_changes, (std::vector{true, false}));
    m_login->locked = true;
    m_login->changed("/sessions/c1", session, {}, {"LockedHint"});
    EXPECT_TRUE(becomes(true));
}

TEST_F(SessionLockTest, FindsItsSessionAfterARestartOfTheLoginManager) {
    startLock();
    deliverAll();
    m_login.emplace(QDBusConnection("login server"));
    m_login->setHint(true);
    ASSERT_TRUE(becomes(true));
    m_login.reset();
    ASSERT_TRUE(becomes(false));
    m_login.emplace(QDBusConnection("login server"), "/sessions/other");
    deliverAll();
    m_login->setHint(true);
    ASSERT_TRUE(becomes(true));
    m_login->setHint(false);
    EXPECT_TRUE(becomes(false));
    EXPECT_EQ(m_changes, (std::vector{true, false, true, false}));
}

TEST_F(SessionLockTest, SurvivesALostBus) {
    startScreenSaver("org.mate.ScreenSaver", true);
    m_login.emplace(QDBusConnection("login server"));
    startLock();
    ASSERT_TRUE(becomes(true));
    m_session.die();
    ASSERT_TRUE(becomes(false));
    m_login->setHint(true);
    EXPECT_TRUE(becomes(true)) << "the other bus is no longer received";
}

TEST(SessionLockWithoutABus, IsNotLocked) {
    const SessionLock lock(QDBusConnection("there is none"), QDBusConnection("nor here"));
    QCoreApplication::processEvents();
    EXPECT_FALSE(lock.isLocked());
}

TEST(SessionLockOnABusThatStartsServices, DoesNotActivateServices) {
    test::ConnectedBus bus(test::PrivateBus::Services::installed);
    const auto client = bus.connect("starter");
    const test::ActivatableService screenSaver(bus, client, "org.gnome.ScreenSaver");
    const test::ActivatableService login(bus, client, "org.freedesktop.login1");
    const test::ActivatableService other(bus, client, "org.vexmoor.Other");
    const SessionLock lock(client, client);
    for (int round = 0; round < 4; ++round)
        test::deliverMessages({"starter"});
    client.call(QDBusMessage::createMethodCall("org.vexmoor.Other", "/", "", "Start"));
    EXPECT_TRUE(other.wasStarted()) << "this bus cannot activate services";
    EXPECT_FALSE(screenSaver.wasStarted());
    EXPECT_FALSE(login.wasStarted());
}

} // namespace
} // namespace vexmoor
