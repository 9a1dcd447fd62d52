#pragma once

#include "support/Command.h"
#include "support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace vexmoor::test {

using Json = nlohmann::ordered_json;

/// Runs the built program as a user with a scratch home.
class CliTest : public testing::Test {
  protected:
    CliTest();

    /// Returns a command that runs `vexmoor` with these arguments in `files`.
    [[nodiscard]] Command vexmoor(std::vector<std::string> arguments) const;
    [[nodiscard]] Command::Result run(std::vector<std::string> arguments) const;
    /// Runs the command and returns its JSON document. The test fails if there is none.
    [[nodiscard]] Json json(std::vector<std::string> arguments) const;

    /// Returns a command that runs another program in the same environment.
    [[nodiscard]] Command program(std::vector<std::string> arguments) const;

    /// Creates a file in `files`.
    Path make(const std::string& name, std::string_view bytes = "bytes") const;
    /// Creates that many files, "item-000" and on, and returns their names.
    [[nodiscard]] std::vector<std::string> makeItems(std::size_t count) const;

    [[nodiscard]] bool isThere(const std::string& name) const;
    /// Returns the names of the items in the Bin, sorted.
    [[nodiscard]] std::vector<std::string> binned() const;

    TemporaryDirectory m_scratch;
    Path m_home = m_scratch / "home";
    Path m_files = m_home / "files";
    Path m_data = m_home / "data";
    Path m_config = m_home / "config";
    Path m_program;
};

/// Returns the names of the files in a folder, sorted; none if it does not exist.
std::vector<std::string> namesIn(const Path& folder);

} // namespace vexmoor::test
