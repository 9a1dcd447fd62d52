#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vexmoor {

/// Synthesises the sizzle: a hiss of filtered noise with three falling pops in it. Any thread.
class SizzleRenderer {
  public:
    SizzleRenderer() = delete;

    static constexpr std::uint32_t kRate = 44100;      ///< samples a second
    static constexpr std::size_t kSampleCount = 48510; ///< 1.1 seconds
    static constexpr std::size_t kHeaderSize = 44;     ///< bytes before the first sample
    static constexpr float kSampleFactor = 32000.0F;   ///< a little below full scale

    /// The whole WAV image, 16 bits and mono; always the same bytes.
    static std::vector<std::uint8_t> render();

    /// Samples of -1 to 1 as a WAV image. More than its 32-bit sizes can tell is a fatal error.
    static std::vector<std::uint8_t> wavData(std::span<const float> samples, std::uint32_t rate);
};

} // namespace vexmoor
