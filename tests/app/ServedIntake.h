#pragma once

#include "app/CommandService.h"

#include "intake/IntakeFixture.h"
#include "intake/WriterLock.h"
#include "support/Command.h"
#include "support/MainLoop.h"
#include "support/PrivateBus.h"

namespace vexmoor::test {

/// Counts the calls of Stop.
class WatchedService : public CommandService {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.vexmoor.Commands1")

  public:
    using CommandService::CommandService;
    int stops = 0;

  public slots:
    void Stop(const QDBusMessage& message) {
        ++stops;
        CommandService::Stop(message);
    }
};

/// Replies with an invalid report.
class NonsenseService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.vexmoor.Commands1")

  public slots:
    QString Feed(const QByteArrayList&, const QString&, bool, const QList<qulonglong>&) {
        return R"({"done": 7})";
    }
};

/// Works until its progress has been requested several times.
class SlowService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.vexmoor.Commands1")

  public:
    explicit SlowService(QDBusConnection bus) : m_bus(std::move(bus)) {}

  public slots:
    QString Feed(const QByteArrayList&, const QString&, bool, const QList<qulonglong>&,
                 const QDBusMessage& message) {
        message.setDelayedReply(true);
        m_call = message;
        return {};
    }
    qulonglong Progress(qulonglong& bytes, qulonglong& removed) {
        constexpr int kLooks = 8;
        bytes = 5'000'000;
        removed = 234;
        if (++m_looks == kLooks)
            m_bus.send(m_call.createReply(QStringLiteral(
                R"({"done": [], "failures": [], "untouched": [], "unlocked": []})")));
        return 1234;
    }

  private:
    QDBusConnection m_bus;
    QDBusMessage m_call;
    int m_looks = 0;
};

/// An intake that serves commands on a private bus. The test holds the writer lock, like the
/// desktop program.
class ServedIntake : public IntakeTest {
  protected:
    static constexpr const char* kName = "org.vexmoor.Vexmoor";
    static constexpr const char* kPath = "/org/vexmoor/Vexmoor";

    void SetUp() override {
        lock = takeLock();
        ASSERT_TRUE(lock);
        serve();
    }
    void TearDown() override {
        service.reset();
        for (const char* const name : {"desktop", "caller", "another"})
            QDBusConnection::disconnectFromBus(name);
    }

    QDBusConnection connection(const char* name) const {
        return QDBusConnection::connectToBus(QString::fromStdString(bus.address()), name);
    }

    [[nodiscard]] std::optional<WriterLock> takeLock() const {
        auto taken = WriterLock::tryTake(directories().ownData() / WriterLock::kFileName,
                                         WriterLock::Role::desktop);
        return taken ? *std::move(taken) : std::nullopt;
    }

    void serve() {
        auto desktop = connection("desktop");
        service.emplace(object, desktop,
                        CommandService::Parts{program->intake, program->settings,
                                              program->progression, program->binnedItems, around,
                                              [this](const std::function<void()>& assignment) {
                                                  assignment();
                                                  return storeFailure;
                                              },
                                              [this] { return fedByKey; }});
        ASSERT_TRUE(desktop.registerObject(kPath, &object));
        ASSERT_TRUE(desktop.registerService(kName));
    }

    /// Runs both queues until the condition is true.
    bool serveUntil(const std::function<bool()>& condition) const {
        return eventuallyInLoop([&] {
            settle();
            return condition();
        });
    }

    PrivateBus bus;
    QObject object;
    std::optional<WriterLock> lock;
    std::optional<WatchedService> service;
    std::optional<Error> storeFailure;
    bool fedByKey = false; ///< returned by fedByMenuCommand
};

} // namespace vexmoor::test
