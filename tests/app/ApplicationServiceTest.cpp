#include "app/ApplicationService.h"

#include "support/MainLoop.h"
#include "support/PrivateBus.h"

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

TEST(ApplicationServiceTest, KeepsEarlyRequestsUntilTheyAreDelivered) {
    const test::PrivateBus bus;
    const auto connect = [&](const char* name) {
        return QDBusConnection::connectToBus(QString::fromStdString(bus.address()), name);
    };
    {
        ApplicationService owner(connect("owner"));
        ApplicationService second(connect("second"));
        ASSERT_EQ(owner.claimName(), ApplicationService::Claim::owned);
        EXPECT_EQ(second.claimName(), ApplicationService::Claim::taken);

        std::vector<std::string> orders;
        QObject::connect(&owner, &ApplicationService::activateRequested, &owner,
                         [&] { orders.emplace_back("activate"); });
        QObject::connect(&owner, &ApplicationService::openRequested, &owner,
                         [&](const std::vector<Path>& items, int others) {
                             for (const auto& item : items)
                                 orders.push_back("open " + item.native());
                             orders.push_back("others " + std::to_string(others));
                         });
        QObject::connect(
            &owner, &ApplicationService::actionRequested, &owner,
            [&](const QString& name) { orders.push_back("act " + name.toStdString()); });
        const auto send = [&](const char* method, const QVariantList& arguments) {
            auto message =
                QDBusMessage::createMethodCall(ApplicationService::kName, ApplicationService::kPath,
                                               "org.freedesktop.Application", method);
            message.setArguments(arguments);
            const auto reply = QDBusConnection("second").asyncCall(message);
            EXPECT_TRUE(test::eventuallyInLoop([&] { return reply.isFinished(); }));
            return reply.error().name().toStdString();
        };
        EXPECT_EQ(
            send("Open", {QStringList{"file:///a%20%FE", "http://elsewhere/b"}, QVariantMap()}),
            "");
        EXPECT_EQ(send("Activate", {QVariantMap()}), "");
        EXPECT_THAT(orders, testing::IsEmpty());
        owner.deliverOrders();
        EXPECT_EQ(send("ActivateAction", {"put-back", QVariantList(), QVariantMap()}), "");
        owner.stopTaking();
        EXPECT_THAT(orders, ElementsAre("open /a \xFE", "others 1", "activate", "act put-back"));
        EXPECT_EQ(send("Activate", {QVariantMap()}), "org.vexmoor.Error.Ending");
        QCoreApplication::processEvents();
        EXPECT_THAT(orders, SizeIs(4));
    }
    QDBusConnection::disconnectFromBus("owner");
    QDBusConnection::disconnectFromBus("second");
}

TEST(ApplicationServiceTest, DoesNothingWithoutABus) {
    ApplicationService alone(QDBusConnection::connectToBus("unix:path=/nowhere", "none"));
    EXPECT_EQ(alone.claimName(), ApplicationService::Claim::impossible);
    EXPECT_EQ(alone.forwardProbe(), std::nullopt);
}

} // namespace
} // namespace vexmoor
