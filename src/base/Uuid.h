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

    /// Returns a new random id.
    static Uuid generate();

    /// Parses 36 characters in either case. Returns nullopt for any other text.
    static std::optional<Uuid> fromString(std::string_view text);

    /// Returns 36 characters: upper-case hexadecimal digits and hyphens.
    [[nodiscard]] std::string toString() const;

    auto operator<=>(const Uuid&) const = default;
};

} // namespace vexmoor
