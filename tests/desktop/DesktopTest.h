#pragma once

#include "Cauldron.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>

namespace vexmoor::test {

/// Maps paths in a folder to the contents of the files.
using Tree = std::map<std::string, std::string>;
Tree treeOf(const Path& folder);

/// A session and usually the program in it.
class DesktopTest : public testing::Test {
  protected:
    void SetUp() override {
        if (const auto program = DesktopSession::missing())
            GTEST_SKIP() << *program << " is not installed";
    }

    void openSession(const DesktopSession::Setting& setting = {}) {
        session = std::make_unique<DesktopSession>(setting);
    }
    void start(const std::vector<std::string>& arguments = {"--background"},
               const BackgroundProgram::Environment& changes = {}) {
        cauldron = std::make_unique<Cauldron>(*session, arguments, changes);
    }
    /// Asks the program to quit; returns its exit status.
    std::optional<int> quit() {
        cauldron->program().signal(SIGTERM);
        return cauldron->program().end();
    }
    [[nodiscard]] static bool isGone(const Path& item) {
        return eventually([&] { return !std::filesystem::exists(item); });
    }

    std::unique_ptr<DesktopSession> session;
    std::unique_ptr<Cauldron> cauldron;
};

} // namespace vexmoor::test
