#pragma once

#include <cstdint>

namespace vexmoor {

/// One pixel with 8-bit channels and straight (not premultiplied) alpha. The default is
/// transparent.
struct Pixel {
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
    std::uint8_t a = 0;

    /// Returns an opaque pixel from 0xRRGGBB.
    static constexpr Pixel fromHex(std::uint32_t rgb) {
        return {static_cast<std::uint8_t>(rgb >> 16 & 0xFF),
                static_cast<std::uint8_t>(rgb >> 8 & 0xFF), static_cast<std::uint8_t>(rgb & 0xFF),
                255};
    }

    [[nodiscard]] constexpr Pixel withAlpha(std::uint8_t alpha) const { return {r, g, b, alpha}; }

    constexpr bool operator==(const Pixel&) const = default;
};

/// Composites `top` over `bottom` (source over, straight alpha) and rounds each channel to nearest,
/// halves up. Exact, because it computes with integer fractions of 255².
constexpr Pixel composited(Pixel top, Pixel bottom) {
    if (top.a == 255)
        return top;
    if (top.a == 0)
        return bottom;
    const std::uint32_t topWeight = top.a * 255U;
    const std::uint32_t bottomWeight = (255U - top.a) * bottom.a;
    const std::uint32_t weight = topWeight + bottomWeight;
    const auto mixed = [&](std::uint32_t upper, std::uint32_t lower) {
        const std::uint32_t sum = topWeight * upper + bottomWeight * lower;
        return static_cast<std::uint8_t>((2 * sum + weight) / (2 * weight));
    };
    return {mixed(top.r, bottom.r), mixed(top.g, bottom.g), mixed(top.b, bottom.b),
            static_cast<std::uint8_t>((2 * weight + 255) / 510)};
}

} // namespace vexmoor
