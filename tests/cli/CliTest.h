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

/// Runs the built program as a user with a home of their own.
class CliTest : public testing::Test {
  protected:
    CliTest();

    /// `vexmoor` with these arguments, in `files`.
    [[nodiscard]] Command vexmoor(std::vector<std::string> arguments) const;
    [[nodiscard]] Command::Result run(std::vector<std::string> arguments) const;
    /// The JSON document that it prints; a failure of the test where it prints none.
    [[nodiscard]] Json json(std::vector<std::string> arguments) const;

    /// Another program in the same surroundings.
    [[nodiscard]] Command program(std::vector<std::string> arguments) const;

    /// Makes a file in `files`.
    Path make(const std::string& name, std::string_view bytes = "bytes") const;
    /// As many files, "item-000" and on; their names.
    [[nodiscard]] std::vector<std::string> makeItems(std::size_t count) const;

    [[nodiscard]] bool isThere(const std::string& name) const;
    /// What lies in the Bin, sorted.
    [[nodiscard]] std::vector<std::string> binned() const;

    TemporaryDirectory m_scratch;
    Path m_home = m_scratch / "home";
    Path m_files = m_home / "files";
    Path m_data = m_home / "data";
    Path m_config = m_home / "config";
    Path m_program;
};

/// The names of the files in a folder, sorted; none where it is missing.
std::vector<std::string> namesIn(const Path& folder);

} // namespace vexmoor::test
