#include "base/Published.h"

#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <vector>

namespace vexmoor::test {
namespace {

using testing::ElementsAre;

TEST(Published, NotifiesOfCurrentValueAndEachAssignment) {
    Published<int> field(1);
    std::vector<int> told;
    std::vector<int> readable;
    const auto subscription = field.subscribe([&](int value) {
        told.push_back(value);
        readable.push_back(field.get());
    });
    field.set(2);
    field.set(2);
    field.set(3);
    EXPECT_THAT(told, ElementsAre(1, 2, 2, 3));
    EXPECT_EQ(readable, told);
}

TEST(Published, DoesNotNotifyAfterUnsubscribing) {
    Published<int> field(0);
    std::vector<int> told;
    std::optional<Subscription> second;
    const auto first = field.subscribe([&](int value) {
        if (value == 2)
            second.reset(); // unsubscribes during the notification
    });
    second = field.subscribe([&](int value) { told.push_back(value); });
    field.set(1);
    field.set(2);
    field.set(3);
    EXPECT_THAT(told, ElementsAre(0, 1));
}

TEST(Published, CanBeSubscribedToDuringNotification) {
    Published<int> field(0);
    std::vector<int> told;
    std::vector<Subscription> late;
    const auto first = field.subscribe([&](int value) {
        if (value == 1)
            late.push_back(field.subscribe([&](int later) { told.push_back(later); }));
    });
    field.set(1);
    field.set(2);
    EXPECT_THAT(told, ElementsAre(1, 2));
}

TEST(Published, CanBeDestroyedBeforeItsSubscriptions) {
    auto field = std::make_unique<Published<int>>(0);
    const auto held = std::make_shared<int>(0);
    auto subscription = field->subscribe([held](int) {});
    field.reset();
    EXPECT_EQ(held.use_count(), 1);
    subscription = {};
}

} // namespace
} // namespace vexmoor::test
