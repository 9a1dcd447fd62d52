#include "desktopbus/Notifications.h"

#include "FakeNotificationServer.h"

#include "support/ConnectedBus.h"
#include "support/MainLoop.h"

namespace vexmoor {
namespace {

using test::eventuallyInLoop;
using test::FakeNotificationServer;

class NotificationsTest : public testing::Test {
  protected:
    void SetUp() override {
        m_server.emplace(m_bus.connect("server"));
        m_notifications.emplace(m_bus.connect("client"));
        QObject::connect(&*m_notifications, &Notifications::activated, &*m_notifications,
                         [this](const QString& identifier, const QByteArray& token) {
                             m_activated << identifier << QString::fromUtf8(token);
                         });
    }

    bool authorised() {
        std::optional<bool> answer;
        m_notifications->requestAuthorization([&](bool granted) { answer = granted; });
        EXPECT_FALSE(answer) << "the call blocked";
        EXPECT_TRUE(eventuallyInLoop([&] { return answer.has_value(); }));
        return answer.value_or(false);
    }

    void post(const char* identifier, const char* body = "Body") {
        m_notifications->post({identifier, "Title", body});
    }

    [[nodiscard]] bool serverGot(std::size_t calls) {
        const bool got = eventuallyInLoop([&] { return m_server->calls.size() >= calls; });
        test::deliverMessages({"server", "client"});
        return got && m_server->calls.size() == calls;
    }

    [[nodiscard]] bool serverReportedCapabilities() {
        const bool reportedCapabilities =
            eventuallyInLoop([&] { return m_server->reportedCapabilities; });
        test::deliverMessages({"server", "client"});
        return reportedCapabilities;
    }

    test::ConnectedBus m_bus;
    std::optional<FakeNotificationServer> m_server;
    std::optional<Notifications> m_notifications;
    QStringList m_activated;
};

TEST_F(NotificationsTest, SendsTheExpectedCall) {
    ASSERT_TRUE(authorised());
    post("achievement.first", "Salt & <b>pepper</b>");
    ASSERT_TRUE(serverGot(1));
    const auto& call = m_server->calls.front();
    EXPECT_EQ(call.replaces, 0U);
    EXPECT_EQ(call.icon, "org.vexmoor.Vexmoor");
    EXPECT_EQ(call.title, "Title");
    EXPECT_EQ(call.body, "Salt & <b>pepper</b>");
    EXPECT_EQ(call.actions.value(0), "default");
    EXPECT_EQ(call.hints.value("desktop-entry"), "org.vexmoor.Vexmoor");
    EXPECT_TRUE(call.hints.contains("sound-name"));
}

TEST_F(NotificationsTest, EscapesMarkup) {
    const QString escaped = "Salt &amp; &lt;b&gt;pepper&lt;/b&gt;";
    ASSERT_TRUE(serverReportedCapabilities());
    post("a", "Salt & <b>pepper</b>");
    ASSERT_TRUE(serverGot(1));
    EXPECT_EQ(m_server->calls[0].body, "Salt & <b>pepper</b>");

    m_server.reset();
    m_server.emplace(m_bus.connect("server"));
    m_server->capabilities << "body-markup";
    ASSERT_TRUE(serverReportedCapabilities());
    post("a", "Salt & <b>pepper</b>");
    ASSERT_TRUE(serverGot(1));
    EXPECT_EQ(m_server->calls[0].body, escaped) << "it is a different server";

    Notifications early(m_bus.connect("client"));
    early.post({"b", "Title", "Salt & <b>pepper</b>"});
    ASSERT_TRUE(serverGot(2));
    EXPECT_EQ(m_server->calls[1].body, escaped) << "its capabilities are unknown";
}

TEST_F(NotificationsTest, ReplacesAnOpenNotificationWithTheSameIdentifier) {
    post("a");
    post("b");
    ASSERT_TRUE(serverGot(2));
    post("b");
    ASSERT_TRUE(serverGot(3));
    EXPECT_EQ(m_server->calls[2].replaces, 2U);
    emit m_server->NotificationClosed(2, 1);
    test::deliverMessages({"server", "client"});
    post("b");
    post("a");
    ASSERT_TRUE(serverGot(5));
    EXPECT_EQ(m_server->calls[3].replaces, 0U);
    EXPECT_EQ(m_server->calls[4].replaces, 1U);
}

TEST_F(NotificationsTest, ReplacesAPendingNotificationByTheLatest) {
    m_server->holdsAnswers = true;
    post("a", "first");
    post("a", "second");
    post("a", "third");
    ASSERT_TRUE(serverGot(1));
    m_server->holdsAnswers = false;
    m_server->answer();
    ASSERT_TRUE(serverGot(2));
    EXPECT_EQ(m_server->calls[1].replaces, 1U);
    EXPECT_EQ(m_server->calls[1].body, "third");
}

TEST_F(NotificationsTest, ReportsWhichNotificationWasActivated) {
    post("a");
    ASSERT_TRUE(serverGot(1));
    emit m_server->ActionInvoked(7, "default"); // of another program
    emit m_server->ActionInvoked(1, "other");
    emit m_server->ActivationToken(1, "focus");
    emit m_server->ActionInvoked(1, "default");
    emit m_server->ActionInvoked(1, "default");
    ASSERT_TRUE(eventuallyInLoop([this] { return m_activated.size() >= 4; }));
    test::deliverMessages({"server", "client"});
    EXPECT_EQ(m_activated, (QStringList{"a", "focus", "a", ""}));
}

TEST_F(NotificationsTest, SurvivesAMissingAndAnExitingServer) {
    post("a");
    ASSERT_TRUE(serverGot(1));
    m_server->holdsAnswers = true;
    post("b");
    ASSERT_TRUE(serverGot(2));
    m_server.reset();
    QDBusConnection::disconnectFromBus("server"); // also fails its pending replies
    EXPECT_FALSE(authorised());
    post("a");
    m_server.emplace(m_bus.connect("server"));
    EXPECT_TRUE(authorised());
    post("c");
    post("a");
    post("b");
    ASSERT_TRUE(eventuallyInLoop([this] { return m_server->calls.size() >= 3; }));
    for (const auto& call : m_server->calls)
        EXPECT_EQ(call.replaces, 0U) << "that id is stale";
    test::deliverMessages({"server", "client"});
    emit m_server->ActionInvoked(1, "default");
    ASSERT_TRUE(eventuallyInLoop([this] { return !m_activated.isEmpty(); }));
    EXPECT_EQ(m_activated.size(), 2) << "one identifier without a token";
}

TEST_F(NotificationsTest, DoesNotCallCompletionsAfterDestruction) {
    bool called = false;
    m_notifications->requestAuthorization([&](bool) { called = true; });
    m_notifications.reset();
    test::deliverMessages({"server", "client"});
    test::deliverMessages({"server", "client"});
    EXPECT_FALSE(called);
}

TEST(NotificationsWithoutABus, DeniesPermission) {
    Notifications notifications(QDBusConnection("there is none"));
    std::optional<bool> answer;
    notifications.requestAuthorization([&](bool granted) { answer = granted; });
    notifications.post({"a", "Title", "Body"});
    EXPECT_EQ(answer, false);
}

} // namespace
} // namespace vexmoor
