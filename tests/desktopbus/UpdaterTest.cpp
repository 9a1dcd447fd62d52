#include "desktopbus/Updater.h"

#include "ActivatableService.h"
#include "FakeService.h"

#include "support/ConnectedBus.h"
#include "support/MainLoop.h"

#include <QDBusObjectPath>

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using namespace std::chrono_literals;
using test::eventuallyInLoop;
using test::FakeService;

const QString kNotManaged = "This copy of Vexmoor was not installed by the system's package "
                            "service, so it can't look for updates.";
const QString kNoService = "This system has no package service that Vexmoor can ask for updates. "
                           "Look for updates where you got Vexmoor.";
const QString kStopped = "The system's package service stopped before it replied.";

constexpr uint kInstalled = 1;
constexpr uint kAvailable = 2;
constexpr uint kNormal = 5;
constexpr uint kSecurity = 8;
constexpr uint kBlocked = 9;

struct Listed {
    uint info;
    QString id;
};
using Packages = std::vector<Listed>;

enum class Failure { refuses, reports, failsSilently, isSilent };

/// A package service, each of whose transactions handles one request.
class FakePackages {
  public:
    explicit FakePackages(const QDBusConnection& bus)
        : m_service(bus, "org.freedesktop.PackageKit",
                    [this](const QDBusMessage& call) { return answer(call); }) {}

    [[nodiscard]] const QStringList& calls() const { return m_service.calls; }

    Packages installed = {{kInstalled, "vexmoor;0.1.0-1;amd64;installed:debian"}};
    Packages updates;
    QString failing; ///< the method that triggers the failure
    Failure failure = Failure::isSilent;
    std::size_t repliesBeforeExit = SIZE_MAX; ///< permanently; then the bus replies
    std::vector<QVariantList> questions;

  private:
    QDBusMessage answer(const QDBusMessage& call) {
        const QString transaction = QStringLiteral("/%1_transaction").arg(questions.size());
        if (questions.size() == repliesBeforeExit)
            return call.createErrorReply(QDBusError::ServiceUnknown, "no owner");
        if (call.member() == failing)
            return fail(call, transaction);
        if (call.path() == "/org/freedesktop/PackageKit" && call.member() == "CreateTransaction")
            return call.createReply(QVariant::fromValue(QDBusObjectPath(transaction)));
        if (call.path() != transaction)
            return call.createErrorReply(QDBusError::UnknownObject, call.path());
        questions.push_back(call.arguments());
        for (const Listed& package : call.member() == "SearchFiles" ? installed : updates)
            emitSignal(transaction, "Package", {package.info, package.id, "a summary"});
        emitSignal(transaction, "Finished", {1U, 12U});
        return call.createReply();
    }

    QDBusMessage fail(const QDBusMessage& call, const QString& transaction) {
        if (failure == Failure::isSilent) // after accepting the request
            return call.member() == "CreateTransaction" ? QDBusMessage() : call.createReply();
        if (failure == Failure::refuses)
            return call.createErrorReply("org.freedesktop.PackageKit.Denied", "not for you");
        if (failure == Failure::reports)
            emitSignal(transaction, "ErrorCode", {4U, "the lists are broken\n"});
        emitSignal(transaction, "Finished", {2U, 12U});
        return call.createReply();
    }

    void emitSignal(const QString& transaction, const QString& signal,
                    const QVariantList& arguments) {
        m_service.emitSignal(transaction, "org.freedesktop.PackageKit.Transaction", signal,
                             arguments);
    }

    FakeService m_service;
};

class UpdaterTest : public testing::Test {
  protected:
    void startService() { m_packages.emplace(m_bus.connect("server")); }

    void killService() {
        m_packages.reset();
        QDBusConnection::disconnectFromBus("server");
    }

    void startUpdater(std::chrono::milliseconds deadline = Updater::kDeadline) {
        startUpdater(m_bus.connect("client"), deadline);
    }
    void startUpdater(const QDBusConnection& bus,
                      std::chrono::milliseconds deadline = Updater::kDeadline) {
        m_updater.emplace(bus, "/usr/bin/vexmoor-desktop", deadline);
        QObject::connect(&*m_updater, &Updater::finished, &*m_updater,
                         [this](const UpdateCheck& check) { m_results << sentenceFor(check); });
    }

    [[nodiscard]] QString check() {
        m_results.clear();
        m_updater->checkForUpdates();
        EXPECT_TRUE(m_results.isEmpty()) << "the call blocked";
        return result();
    }

    [[nodiscard]] QString result() {
        EXPECT_TRUE(eventuallyInLoop([this] { return !m_results.isEmpty(); }));
        return m_results.join(" | ");
    }

    [[nodiscard]] bool serviceIsCalled(const QString& method) {
        return eventuallyInLoop([&] { return m_packages->calls().contains(method); });
    }

    test::ConnectedBus m_bus;
    std::optional<FakePackages> m_packages;
    std::optional<Updater> m_updater;
    QStringList m_results;
};

TEST_F(UpdaterTest, ReportsTheStateOfOurPackage) {
    const struct {
        Packages installed;
        Packages updates;
        QString result;
    } kCases[] = {
        {{{kInstalled, "vexmoor;0.1.0-1;amd64;installed:debian"}},
         {},
         "Vexmoor 0.1.0 is up to date."},
        {{{kInstalled, "vexmoor;0.1.0-1;amd64;installed:debian"}},
         {{kSecurity, "vexmoor-data;0.2-1;all;debian"}, {kNormal, "vex;0.2-1;amd64;debian"}},
         "Vexmoor 0.1.0 is up to date."},
        {{{kInstalled, "vexmoor;0.1.0;x86_64;installed"}},
         {{kNormal, "acid;2-1;amd64;debian"}, {kNormal, "vexmoor;0.2-1;x86_64;updates"}},
         "Vexmoor 0.2 is available from your system's software updates."},
        {{{kInstalled, "vexmoor;2:0.1.0-1;amd64;installed:debian"}},
         {{kSecurity, "vexmoor;2:0.2-rc-1;amd64;debian"}},
         "Vexmoor 0.2-rc is available from your system's software updates."},
        {{{kInstalled, "vexmoor;1:0.1.0-1;amd64;installed:debian"}},
         {{kSecurity, "vexmoor;1:0.1.0-2;amd64;debian"}},
         "Vexmoor 0.1.0-2 is available from your system's software updates."},
        {{{kInstalled, "vexmoor;1:0.1.0-1;amd64;installed:debian"}},
         {{kBlocked, "vexmoor;1:0.2-1;amd64;debian"}},
         "Vexmoor 0.1.0 is up to date."},
        {{}, {{kNormal, "vexmoor;0.2-1;amd64;debian"}}, kNotManaged},
        {{{kAvailable, "vexmoor;0.1.0-1;amd64;debian"}}, {}, kNotManaged},
    };
    startService();
    startUpdater();
    for (const auto& [installed, updates, expected] : kCases) {
        m_packages->installed = installed;
        m_packages->updates = updates;
        EXPECT_EQ(check(), expected);
    }
}

TEST_F(UpdaterTest, RequestsTheInstalledOwnerThenAllUpdates) {
    startService();
    startUpdater();
    ASSERT_EQ(check(), "Vexmoor 0.1.0 is up to date.");
    EXPECT_EQ(m_packages->calls(),
              (QStringList{"CreateTransaction", "SearchFiles", "CreateTransaction", "GetUpdates"}));
    const std::vector<QVariantList> questions = {{4ULL, QStringList{"/usr/bin/vexmoor-desktop"}},
                                                 {2ULL}};
    EXPECT_EQ(m_packages->questions, questions);
}

TEST_F(UpdaterTest, ReportsTheServicesErrors) {
    const QString refused = "The system's package service reports: not for you";
    const QString reported = "The system's package service reports: the lists are broken";
    const QString failedSilently = "The system's package service failed without an error message.";
    const struct {
        QString method;
        Failure failure;
        QString result;
    } kCases[] = {
        {"CreateTransaction", Failure::refuses, refused},
        {"SearchFiles", Failure::refuses, refused},
        {"SearchFiles", Failure::reports, reported},
        {"SearchFiles", Failure::failsSilently, failedSilently},
        {"GetUpdates", Failure::refuses, refused},
        {"GetUpdates", Failure::reports, reported},
        {"GetUpdates", Failure::failsSilently, failedSilently},
    };
    startService();
    startUpdater();
    for (const auto& [method, failure, expected] : kCases) {
        m_packages->failing = method;
        m_packages->failure = failure;
        m_packages->questions.clear();
        EXPECT_EQ(check(), expected) << method.toStdString();
    }
}

TEST_F(UpdaterTest, ReportsAServiceThatExitsDuringARequest) {
    startUpdater();
    for (const char* method : {"CreateTransaction", "SearchFiles", "GetUpdates"}) {
        startService();
        m_packages->failing = method;
        m_results.clear();
        m_updater->checkForUpdates();
        ASSERT_TRUE(serviceIsCalled(method));
        killService();
        EXPECT_EQ(result(), kStopped) << method;
    }
}

TEST_F(UpdaterTest, ReportsAServiceThatExitsBetweenItsReplies) {
    startService();
    startUpdater();
    m_packages->repliesBeforeExit = 1;
    EXPECT_EQ(check(), kStopped);
}

TEST_F(UpdaterTest, CancelsTheRequestAtTheDeadline) {
    startService();
    startUpdater(1s); // long enough for the request to reach a busy service
    for (const char* method : {"SearchFiles", "GetUpdates"}) {
        m_packages->failing = method;
        m_packages->questions.clear();
        EXPECT_EQ(check(), "The system's package service did not answer in time.") << method;
        EXPECT_TRUE(eventuallyInLoop([this] { return m_packages->calls().last() == "Cancel"; }));
    }
}

TEST_F(UpdaterTest, RunsOneCheckAtATime) {
    startService();
    startUpdater();
    m_updater->checkForUpdates();
    m_updater->checkForUpdates();
    ASSERT_TRUE(serviceIsCalled("SearchFiles"));
    m_updater->checkForUpdates();
    EXPECT_EQ(result(), "Vexmoor 0.1.0 is up to date.");
    test::deliverMessages({"client", "server", "client"});
    EXPECT_EQ(m_results.size(), 1);
    EXPECT_EQ(m_packages->calls().count("CreateTransaction"), 2);
    EXPECT_EQ(check(), "Vexmoor 0.1.0 is up to date.") << "the next check";
}

TEST_F(UpdaterTest, EmitsNothingAfterDestruction) {
    startService();
    m_packages->failing = "SearchFiles";
    startUpdater();
    m_updater->checkForUpdates();
    ASSERT_TRUE(serviceIsCalled("SearchFiles"));
    m_updater.reset();
    EXPECT_TRUE(serviceIsCalled("Cancel"));
    EXPECT_TRUE(m_results.isEmpty());
}

TEST_F(UpdaterTest, ReportsAMissingService) {
    startUpdater();
    EXPECT_EQ(check(), kNoService) << "no service";
    startUpdater(QDBusConnection("there is none"));
    EXPECT_EQ(check(), kNoService) << "no bus";
}

TEST_F(UpdaterTest, CanCancelACheckAndStartAnother) {
    startService();
    startUpdater();
    QList<bool> states;
    QObject::connect(&*m_updater, &Updater::checkingChanged, &*m_updater,
                     [&](bool isChecking) { states << isChecking; });
    m_packages->failing = "SearchFiles";
    m_updater->checkForUpdates();
    ASSERT_TRUE(serviceIsCalled("SearchFiles"));
    EXPECT_TRUE(m_updater->isChecking());
    m_updater->cancel();
    m_updater->cancel();
    EXPECT_FALSE(m_updater->isChecking());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(serviceIsCalled("Cancel"));
    EXPECT_TRUE(m_results.isEmpty());
    m_packages->failing.clear();
    m_packages->questions.clear();
    EXPECT_EQ(check(), "Vexmoor 0.1.0 is up to date.");
    EXPECT_EQ(states, QList<bool>({true, false, true, false}));

    startUpdater(QDBusConnection("there is none"));
    m_updater->checkForUpdates();
    m_updater->cancel();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_results.size(), 1) << "the result without a bus was not cancelled";
}

TEST_F(UpdaterTest, ActivatesTheService) {
    test::ConnectedBus bus(test::PrivateBus::Services::installed);
    const auto starter = bus.connect("starter");
    const test::ActivatableService service(bus, starter, "org.freedesktop.PackageKit");
    startUpdater(starter);
    EXPECT_THAT(check().toStdString(), testing::StartsWith("The system's package service reports"));
    EXPECT_TRUE(service.wasStarted());
    m_updater.reset();
}

} // namespace
} // namespace vexmoor
