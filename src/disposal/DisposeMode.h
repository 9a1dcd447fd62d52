#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace vexmoor {

/// What feeding an item does to it.
enum class DisposeMode {
    bin,      ///< moved to the Bin, can be put back
    dissolve, ///< deleted at once, cannot be put back
};

inline constexpr std::array kDisposeModes = {DisposeMode::bin, DisposeMode::dissolve};

constexpr std::string_view toRawValue(DisposeMode mode) {
    return mode == DisposeMode::bin ? "bin" : "dissolve";
}

/// The mode of exactly that name.
constexpr std::optional<DisposeMode> disposeModeFromRawValue(std::string_view text) {
    for (const auto mode : kDisposeModes)
        if (toRawValue(mode) == text)
            return mode;
    return std::nullopt;
}

} // namespace vexmoor
