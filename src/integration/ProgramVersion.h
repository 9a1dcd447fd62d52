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

/// What "program --version" prints, the first "6.4" of its output. Fails if it prints none, ends
/// with an error (most file managers need a display even for this), or does not end within `limit`.
Result<ProgramVersion> versionOf(const Path& program, const std::vector<std::string>& environment,
                                 std::chrono::milliseconds limit);

/// The first version in a text: digits, a dot, digits.
std::optional<ProgramVersion> firstVersionIn(std::string_view text);

} // namespace vexmoor
