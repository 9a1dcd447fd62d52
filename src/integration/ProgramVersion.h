#pragma once

#include "base/Path.h"
#include "base/Result.h"

#include <chrono>
#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexmoor {

struct ProgramVersion {
    int major = 0;
    int minor = 0;

    auto operator<=>(const ProgramVersion&) const = default;
};

/// Runs "program --version" and returns the first version in its output. Fails if there is none, if
/// the program fails (most file managers need a display even for this), or if it exceeds `limit`.
Result<ProgramVersion> versionOf(const Path& program, const std::vector<std::string>& environment,
                                 std::chrono::milliseconds limit);

/// Returns the first version in a text: digits, a dot, digits.
std::optional<ProgramVersion> firstVersionIn(std::string_view text);

} // namespace vexmoor
