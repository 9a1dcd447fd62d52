#include "finder/Automation.h"

#include "support/InMemoryDefaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vexmoor {
namespace {

using namespace test;
using testing::ElementsAre;
using Status = AutomationStatus;

struct OpenDialogs : Dialogs {
    void ask(const Question&, std::function<void(const Answer&)> answered) override {
        open.push_back(std::move(answered));
    }
    void report(const FailureReport&) override {}
    void beep() override {}
    std::vector<std::function<void(const Answer&)>> open;
};

struct AutomationTest : testing::Test {
    void request(Automation& automation) {
        automation.request([this](Status status) { answers.push_back(status); });
    }
    InMemoryDefaults defaults;
    OpenDialogs dialogs;
    std::vector<Status> answers;
};

TEST_F(AutomationTest, AsksOnceForAllRequestsAndStoresTheAnswer) {
    for (const bool allows : {true, false}) {
        defaults.assign(Automation::kKey, std::nullopt);
        Automation automation(defaults, dialogs);
        request(automation);
        request(automation);
        ASSERT_EQ(dialogs.open.size(), 1u);
        std::exchange(dialogs.open, {}).front()({.confirmed = allows, .isGiven = true});
        const Status status = allows ? Status::granted : Status::denied;
        EXPECT_THAT(std::exchange(answers, {}), ElementsAre(status, status));
        Automation later(defaults, dialogs);
        request(later);
        EXPECT_THAT(std::exchange(answers, {}), ElementsAre(status));
        EXPECT_TRUE(dialogs.open.empty());
    }
}

TEST_F(AutomationTest, StaysUndecidedIfTheDialogIsCancelled) {
    Automation automation(defaults, dialogs);
    request(automation);
    std::exchange(dialogs.open, {}).front()({});
    EXPECT_THAT(answers, ElementsAre(Status::notAsked));
    EXPECT_EQ(defaults.string(Automation::kKey), std::nullopt);
}

} // namespace
} // namespace vexmoor
