#include "support/MainLoop.h"

#include <QApplication>

namespace {

[[maybe_unused]] const auto* const kApplication =
    testing::AddGlobalTestEnvironment(new vexmoor::test::ApplicationEnvironment<QApplication>);

} // namespace
