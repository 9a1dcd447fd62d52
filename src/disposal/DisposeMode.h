#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace vexmoor {

/// What happens to an item that is fed.
enum class DisposeMode {
    bin,      ///< moved to the Bin; can be put back
    dissolve, ///< deleted immediately; cannot be put back
};

inline constexpr std::array kDisposeModes = {DisposeMode::bin, DisposeMode::dissolve};

constexpr std::string_view toRawValue(DisposeMode mode) {
    return mode == DisposeMode::bin ? "bin" : "dissolve";
}

/// Returns the mode with exactly that name, or nullopt.
constexpr std::optional<DisposeMode> disposeModeFromRawValue(std::string_view text) {
    for (const auto mode : kDisposeModes)
        if (toRawValue(mode) == text)
            return mode;
    return std::nullopt;
}

} // namespace vexmoor
