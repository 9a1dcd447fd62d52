#include "app/KeyOutlook.h"

#include <gmock/gmock.h>

namespace vexmoor {
namespace {

using Status = AcceleratorStatus;
using Way = Onboarding::KeyWay;
using Kind = Permissions::KeyHint::Kind;

KeyState stateOf(const char* manager, Status status) {
    KeyState state;
    state.manager = fileManagerWithId(manager);
    state.status = status;
    return state;
}

KeyState waiting() {
    KeyState state = stateOf("nemo", Status::installed);
    state.waitsForRestart = true;
    return state;
}

KeyState failed() {
    KeyState state = stateOf("thunar", Status::notInstalled);
    state.error = Error{};
    return state;
}

TEST(KeyOutlookTest, DependsOnTheSessionAndTheFileManagers) {
    const KeyState caja = stateOf("caja", Status::unsupported);
    const KeyState thunar = stateOf("thunar", Status::notInstalled);
    const KeyState taken = stateOf("thunar", Status::taken);
    const KeyState otherKey = stateOf("nautilus", Status::otherKey);
    const KeyState installed = stateOf("nautilus", Status::installed);
    struct Case {
        const char* description;
        KeyOutlook outlook;
        Way way;
        std::vector<Permissions::KeyHint> hints;
    };
    const std::vector<Case> cases = {
        {"not known yet", {false, std::nullopt}, Way::available, {}},
        {"no file manager", {false, std::vector<KeyState>{}}, Way::none, {}},
        {"only a menu", {false, {{caja}}}, Way::none, {{"Caja", Kind::menuOnly}}},
        {"one that can", {false, {{caja, thunar}}}, Way::available, {{"Caja", Kind::menuOnly}}},
        {"one that has", {false, {{thunar, installed}}}, Way::bound, {}},
        {"one at its next start",
         {false, {{waiting()}}},
         Way::bound,
         {{"Nemo", Kind::needsRestart}}},
        {"the user's own key", {false, {{taken}}}, Way::blocked, {{"Thunar", Kind::taken}}},
        {"another key", {false, {{otherKey}}}, Way::blocked, {}},
        {"a failure", {false, {{failed()}}}, Way::blocked, {}},
        {"one of two blocked",
         {false, {{taken, thunar}}},
         Way::available,
         {{"Thunar", Kind::taken}}},
        {"captured", {true, {{caja, waiting()}}}, Way::captured, {}},
        {"captured but for one", {true, {{taken}}}, Way::captured, {{"Thunar", Kind::taken}}},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(each.outlook.way(), each.way) << each.description;
        EXPECT_EQ(each.outlook.hints(), each.hints) << each.description;
    }
}

} // namespace
} // namespace vexmoor
