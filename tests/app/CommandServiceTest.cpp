#include "ServedIntake.h"

#include "base/JsonReader.h"
#include "disposal/DisposalError.h"
#include "intake/BatchReport.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace vexmoor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Returns "name: message" of each failure.
std::vector<std::string> told(const BatchReport& report) {
    std::vector<std::string> lines;
    for (const auto& failure : report.failures)
        lines.push_back(failure.name + ": " + describe(failure.error));
    return lines;
}

class CommandServiceTest : public ServedIntake {
  protected:
    using Arguments = QVariantList;
    static constexpr std::size_t kRunning =
        256; ///< the number of running calls from which further ones wait

    void SetUp() override {
        ServedIntake::SetUp();
        around.events.clear();
    }

    QDBusPendingCall begin(const char* caller, const char* method, const Arguments& arguments) {
        auto message =
            QDBusMessage::createMethodCall(kName, kPath, "org.vexmoor.Commands1", method);
        message.setArguments(arguments);
        return connection(caller).asyncCall(message);
    }

    QDBusMessage end(const QDBusPendingCall& call) const {
        EXPECT_TRUE(serveUntil([&] { return call.isFinished(); }));
        return call.reply();
    }

    QDBusMessage call(const char* method, const Arguments& arguments) {
        return end(begin("caller", method, arguments));
    }

    /// Feeds an item without requesting a reply.
    void sendFeed(const char* caller, const Path& item) {
        auto message =
            QDBusMessage::createMethodCall(kName, kPath, "org.vexmoor.Commands1", "Feed");
        message.setArguments(feeding({item}, "", false));
        connection(caller).send(message);
    }
    /// Waits until the service has received all messages sent.
    void takeWhatIsSent() const {
        for (const char* const name :
             {"caller", "desktop"}) // the bus replies after the earlier messages
            EXPECT_TRUE(connection(name).interface()->serviceOwner(kName).isValid());
        QCoreApplication::processEvents();
    }

    /// Closes that caller's connection and waits until the bus reports it.
    void leave(const char* caller) const {
        const QString name = connection(caller).baseService();
        QDBusConnection::disconnectFromBus(caller);
        EXPECT_TRUE(serveUntil([&] {
            return !QDBusConnection("desktop").interface()->isServiceRegistered(name).value();
        }));
    }

    static std::string errorOf(const QDBusMessage& answer) {
        return answer.errorName().toStdString();
    }

    static BatchReport reportIn(const QDBusMessage& answer) {
        const auto text = answer.arguments().value(0).toString().toStdString();
        auto report = batchReportFromJson(parsedJson(text));
        EXPECT_TRUE(report) << text << answer.errorMessage().toStdString();
        return report.value_or(BatchReport());
    }

    static Arguments feeding(const std::vector<Path>& items, const char* mode, bool ask,
                             const QList<qulonglong>& seen = {}) {
        QByteArrayList list;
        for (const auto& item : items)
            list << QByteArray::fromStdString(item.native());
        return {QVariant::fromValue(list), mode, ask, QVariant::fromValue(seen)};
    }

    static std::vector<std::string> namesOf(const BatchReport& report) {
        std::vector<std::string> names;
        for (const auto& item : report.done)
            names.push_back(item.name);
        return names;
    }
};

TEST_F(CommandServiceTest, ReportsItsProgressToTheCaller) {
    const auto progressOf = [this](const char* caller) {
        const auto pending = begin(caller, "Progress", {});
        EXPECT_TRUE(eventuallyInLoop([&] { return pending.isFinished(); }));
        return pending.reply().arguments();
    };
    const QVariantList none{0ULL, 0ULL, 0ULL};
    QVariantList own;
    QVariantList ofAnother;
    around.whileBurning = [&] {
        own = progressOf("caller");
        ofAnother = progressOf("another");
    };
    const auto report = reportIn(call("Feed", feeding(make({"a", "b"}), "dissolve", false)));
    const auto bytes = static_cast<qulonglong>(report.done[0].bytes + report.done[1].bytes);
    EXPECT_EQ(own, (QVariantList{2ULL, bytes, 2ULL}));
    EXPECT_EQ(ofAnother, none);
    EXPECT_EQ(progressOf("caller"), none) << "the batch is finished";
}

TEST_F(CommandServiceTest, FeedsByBytesAndReportsTheResult) {
    auto items = make({"new\nline", "broken\xff"});
    items.push_back(home / "missing");
    const auto report = reportIn(call("Feed", feeding(items, "", false)));
    EXPECT_THAT(namesOf(report), ElementsAre("new\nline", "broken\uFFFD"));
    ASSERT_EQ(report.done.size(), 2U);
    EXPECT_EQ(*report.done[1].original, items[1]);
    EXPECT_TRUE(exists(*report.done[1].trashed));
    EXPECT_THAT(told(report), ElementsAre("missing: No such file or directory."));
    EXPECT_THAT(report.unlocked, ElementsAre("first"));
    EXPECT_THAT(around.events, ElementsAre("sizzle", "burn 2", testing::StartsWith("notify")))
        << "the caller reports failures";

    const auto back = reportIn(call("PutBack", {QStringList(), QVariant::fromValue(1ULL)}));
    EXPECT_EQ(back.landings, (std::vector<StoredPath>{items[1]}));
    const QStringList named{"new\nline", "nothing"};
    const auto erased = reportIn(call("Delete", {named, false}));
    EXPECT_THAT(namesOf(erased), ElementsAre("new\nline"));
    EXPECT_THAT(told(erased), ElementsAre("nothing: nothing is no longer in the Bin."));
    EXPECT_TRUE(reportIn(call("PutBack", {QStringList(), QVariant::fromValue(0ULL)})).isEmpty());
}

TEST_F(CommandServiceTest, AsksOnlyIfTheCallerHasNotAsked) {
    const auto items = make({"a", "b", "c"});
    around.answer = {false, false};
    EXPECT_TRUE(reportIn(call("Feed", feeding({items[0]}, "dissolve", true))).declined);
    EXPECT_THAT(around.events, ElementsAre("ask Dissolve this item forever?"));
    EXPECT_THAT(namesOf(reportIn(call("Feed", feeding({items[0]}, "dissolve", false)))),
                ElementsAre("a"));
    EXPECT_FALSE(exists(items[0]));

    call("Feed", feeding({items[1], items[2]}, "bin", true));
    EXPECT_TRUE(reportIn(call("Delete", {QStringList{"b"}, true})).declined);
    EXPECT_EQ(namesOf(reportIn(call("Delete", {QStringList{"b"}, false}))).size(), 1U);
    around.events.clear();
    reportIn(call("Delete", {QStringList{"b"}, true}));
    reportIn(call("Feed", feeding({home / "missing"}, "", true)));
    EXPECT_THAT(around.events, ElementsAre("report Couldn't delete b", "sizzle",
                                           "report The cauldron rejected missing"));
}

TEST_F(CommandServiceTest, RefusesAmbiguousArguments) {
    const auto items = make({"a"});
    const Path cut = items[0].native() + std::string("\0.txt", 5);
    for (const auto& arguments :
         {feeding({items[0], "a"}, "", false), feeding({items[0], "./a"}, "", false),
          feeding({items[0], ""}, "", false), feeding({cut}, "", false),
          feeding(items, "burn", false), feeding(items, "", false, {1, 2, 3})}) {
        const auto answer = call("Feed", arguments);
        EXPECT_EQ(errorOf(answer), "org.vexmoor.Error.Usage");
        EXPECT_FALSE(answer.errorMessage().isEmpty());
    }
    EXPECT_TRUE(exists(items[0]));
    EXPECT_THAT(around.events, IsEmpty());
}

TEST_F(CommandServiceTest, DissolvesOnlyFilesThatTheCallerHasSeen) {
    const auto items = make({"a", "b"});
    const auto seen = identityAt(items[0]);
    const auto report =
        reportIn(call("Feed", feeding(items, "dissolve", false, {seen.device, seen.inode, 0, 0})));
    EXPECT_THAT(namesOf(report), ElementsAre("a"));
    EXPECT_EQ(report.failures.size(), 1U);
    EXPECT_TRUE(exists(items[1]));
}

TEST_F(CommandServiceTest, AssignsSettingsOrReportsWhyNot) {
    EXPECT_EQ(call("Set", {"mode", "dissolve"}).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(program->settings.mode.get(), DisposeMode::dissolve);
    for (const auto& [name, value, error] : {std::tuple("mode", "burn", "Usage"),
                                             {"volume", "11", "Usage"},
                                             {"skin", "tin", "Usage"},
                                             {"skin", "gold", "Refused"}}) {
        const auto answer = call("Set", {name, value});
        EXPECT_EQ(errorOf(answer), std::string("org.vexmoor.Error.") + error) << name << value;
        EXPECT_FALSE(answer.errorMessage().isEmpty());
    }
    storeFailure = Error::fromErrno(ENOSPC, "write", "/db");
    const auto answer = call("Set", {"sound", "off"});
    EXPECT_EQ(errorOf(answer), "org.vexmoor.Error.Refused");
    EXPECT_EQ(answer.errorMessage().toStdString(),
              "The setting could not be saved: No space left on device (write /db).");
}

TEST_F(CommandServiceTest, ReportsItemsThatAreAlreadyBeingFed) {
    const auto items = make({"a", "b"});
    around.holdsThumbnails = true;
    const auto first = begin("caller", "Feed", feeding({items[0]}, "", false));
    ASSERT_TRUE(serveUntil([&] { return !around.held.empty(); }));
    const auto second = begin("another", "Feed", feeding({items[0], items[1]}, "", false));
    ASSERT_TRUE(serveUntil([&] { return around.held.size() == 2; }));
    around.answerThumbnails();
    EXPECT_THAT(namesOf(reportIn(end(first))), ElementsAre("a"));
    const auto report = reportIn(end(second));
    EXPECT_THAT(namesOf(report), ElementsAre("b"));
    EXPECT_THAT(told(report), ElementsAre("a: It is already being fed to the cauldron."));
}

TEST_F(CommandServiceTest, StopsOnlyTheCallersOwnBatches) {
    const auto items = make({"a", "b"});
    around.holdsThumbnails = true;
    const auto own = begin("caller", "Feed", feeding({items[0]}, "", false));
    const auto others = begin("another", "Feed", feeding({items[1]}, "", false));
    ASSERT_TRUE(serveUntil([&] { return around.held.size() == 2; }));
    call("Stop", {});
    around.answerThumbnails();
    EXPECT_EQ(reportIn(end(own)).untouched, (std::vector<StoredPath>{items[0]}));
    EXPECT_EQ(reportIn(end(others)).done.size(), 1U);
    EXPECT_TRUE(exists(items[0]));
    around.holdsThumbnails = false;
    EXPECT_EQ(reportIn(call("Feed", feeding({items[0]}, "", false))).done.size(), 1U)
        << "later batches are not stopped";
}

TEST_F(CommandServiceTest, ContinuesForADisconnectedCallerAndReportsItsFailures) {
    const auto items = make({"a"});
    around.holdsThumbnails = true;
    {
        const auto call = begin("caller", "Feed", feeding({items[0], home / "b"}, "", false));
        ASSERT_TRUE(serveUntil([&] { return !around.held.empty(); }));
        leave("caller");
    }
    around.answerThumbnails();
    ASSERT_TRUE(serveUntil([&] { return program->intake.batches() == 0; }));
    EXPECT_FALSE(exists(items[0]));
    ASSERT_EQ(around.reports.size(), 1U);
    EXPECT_EQ(around.reports[0].message, "The cauldron rejected b");
}

TEST_F(CommandServiceTest, ReportsFailuresOfCallsWithoutAReply) {
    sendFeed("caller", home / "b");
    EXPECT_TRUE(serveUntil([&] { return !around.reports.empty(); }));
}

TEST_F(CommandServiceTest, QueuesCallsAndDropsThoseOfDisconnectedCallers) {
    constexpr int kSent = 3000;
    const auto items = make(kSent + 1);
    around.holdsThumbnails = true;
    for (int i = 0; i < kSent; ++i)
        sendFeed("another", items[i]);
    ASSERT_TRUE(serveUntil([&] { return around.held.size() == kRunning; }));
    EXPECT_EQ(errorOf(call("Feed", feeding({items.back()}, "", false))),
              "org.vexmoor.Error.Refused")
        << "memory is limited";
    EXPECT_EQ(program->intake.batches(), kRunning);

    leave("another");
    const auto honest = begin("caller", "Feed", feeding({items.back()}, "", false));
    around.holdsThumbnails = false;
    takeWhatIsSent();
    EXPECT_TRUE(exists(items.back())) << "the call is waiting";
    around.answerThumbnails();
    EXPECT_EQ(reportIn(end(honest)).done.size(), 1U);
    for (std::size_t i = 0; i < kSent; ++i)
        ASSERT_EQ(exists(items[i]), i >= kRunning) << i;
    ASSERT_EQ(around.reports.size(), 1U);
    EXPECT_EQ(around.reports[0].message, "2,744 commands were not carried out");
}

TEST_F(CommandServiceTest, RepliesToWaitingCallsWhenStoppedOrEnding) {
    const auto items = make(kRunning + 2);
    around.holdsThumbnails = true;
    for (std::size_t i = 0; i < kRunning; ++i)
        sendFeed("another", items[i]);
    ASSERT_TRUE(serveUntil([&] { return around.held.size() == kRunning; }));
    const auto stopped = begin("caller", "Feed", feeding({items[kRunning]}, "", false));
    call("Stop", {});
    ASSERT_TRUE(serveUntil([&] { return around.held.size() == kRunning + 1; }))
        << "the batch has begun";
    const auto waiting = begin("caller", "Feed", feeding({items.back()}, "", false));
    takeWhatIsSent();
    program->intake.stop();
    service->giveBack(kName);
    EXPECT_EQ(errorOf(end(waiting)), "org.vexmoor.Error.Ending");
    around.answerThumbnails();
    EXPECT_EQ(reportIn(end(stopped)).untouched, (std::vector<StoredPath>{items[kRunning]}));
    EXPECT_TRUE(exists(items.back()));
}

TEST_F(CommandServiceTest, RefusesCallsAfterTheIntakeIsStopped) {
    const auto items = make({"a", "b"});
    around.holdsThumbnails = true;
    const auto running = begin("caller", "Feed", feeding({items[0]}, "", false));
    ASSERT_TRUE(serveUntil([&] { return !around.held.empty(); }));
    program->intake.stop();
    EXPECT_EQ(errorOf(call("Feed", feeding({items[1]}, "", false))), "org.vexmoor.Error.Ending");
    around.answerThumbnails();
    EXPECT_EQ(reportIn(end(running)).untouched.size(), 1U);
}

TEST_F(CommandServiceTest, RepliesToEarlierCallsBeforeItReleasesTheName) {
    const auto items = make({"a"});
    const auto call = begin("caller", "Feed", feeding(items, "", false));
    ASSERT_TRUE(connection("caller").interface()->serviceOwner(kName).isValid())
        << "the call has been sent";
    program->intake.stop();
    service->giveBack(kName);
    EXPECT_EQ(errorOf(end(call)), "org.vexmoor.Error.Ending");
    EXPECT_FALSE(connection("caller").interface()->isServiceRegistered(kName));
    EXPECT_TRUE(exists(items[0]));
}

TEST_F(CommandServiceTest, CanBeDestroyedDuringBatches) {
    around.holdsThumbnails = true;
    const auto items = make({"a"});
    const auto call = begin("caller", "Feed", feeding(items, "", false));
    ASSERT_TRUE(serveUntil([&] { return !around.held.empty(); }));
    service.reset();
    around.answerThumbnails();
    settle();
    EXPECT_FALSE(exists(items[0]));
    QDBusConnection::disconnectFromBus("desktop");
    EXPECT_EQ(errorOf(end(call)), "org.freedesktop.DBus.Error.NoReply");
}

} // namespace
} // namespace vexmoor::test
