#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vexmoor {

/// A universally unique identifier (RFC 4122).
struct Uuid {
    std::array<std::uint8_t, 16> bytes{};

    /// A new random one.
    static Uuid generate();

    /// From its 36 characters in either letter case; nothing when they are anything else.
    static std::optional<Uuid> fromString(std::string_view text);

    /// 36 characters, upper-case hexadecimal with hyphens.
    [[nodiscard]] std::string toString() const;

    auto operator<=>(const Uuid&) const = default;
};

} // namespace vexmoor
