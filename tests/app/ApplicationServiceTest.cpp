#include "app/ApplicationService.h"

#include "support/MainLoop.h"
#include "support/PrivateBus.h"

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using testing::ElementsAre;

TEST(ApplicationServiceTest, KeepsEarlyOrdersUntilSomebodyCarriesThemOut) {
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
            EXPECT_FALSE(reply.isError()) << reply.error().message().toStdString();
        };
        send("Open", {QStringList{"file:///a%20%FE", "http://elsewhere/b"}, QVariantMap()});
        send("Activate", {QVariantMap()});
        EXPECT_THAT(orders, testing::IsEmpty());
        owner.deliverOrders();
        send("ActivateAction", {"put-back", QVariantList(), QVariantMap()});
        QCoreApplication::processEvents();
        EXPECT_THAT(orders, ElementsAre("open /a \xFE", "others 1", "activate", "act put-back"));
    }
    QDBusConnection::disconnectFromBus("owner");
    QDBusConnection::disconnectFromBus("second");
}

TEST(ApplicationServiceTest, IsNothingWithoutABus) {
    ApplicationService alone(QDBusConnection::connectToBus("unix:path=/nowhere", "none"));
    EXPECT_EQ(alone.claimName(), ApplicationService::Claim::impossible);
    EXPECT_EQ(alone.forwardProbe(), std::nullopt);
}

} // namespace
} // namespace vexmoor
