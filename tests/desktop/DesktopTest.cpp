#include "DesktopTest.h"

#include "support/MainLoop.h"

#include <filesystem>

namespace vexmoor::test {
namespace {

[[maybe_unused]] const auto* const kApplication = testing::AddGlobalTestEnvironment(
    new ApplicationEnvironment<QCoreApplication>); // for D-Bus calls

} // namespace

Tree treeOf(const Path& folder) {
    Tree tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        tree[entry.path().lexically_relative(folder)] =
            entry.is_regular_file() ? contents(entry.path()) : "";
    return tree;
}

} // namespace vexmoor::test
