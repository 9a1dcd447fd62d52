#include "support/MainLoop.h"

namespace {

[[maybe_unused]] const auto* const kApplication =
    testing::AddGlobalTestEnvironment(new vexmoor::test::ApplicationEnvironment<QCoreApplication>);

} // namespace
