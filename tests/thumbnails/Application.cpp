#include "support/MainLoop.h"

#include <QGuiApplication>

namespace {

[[maybe_unused]] const auto* const kApplication = testing::AddGlobalTestEnvironment(
    new vexmoor::test::ApplicationEnvironment<QGuiApplication>); // icons need QGuiApplication

} // namespace
