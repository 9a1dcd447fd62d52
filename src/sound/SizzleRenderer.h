#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vexmoor {

/// Synthesises the sizzle: filtered noise with three pops of falling pitch. Thread-safe.
class SizzleRenderer {
  public:
    SizzleRenderer() = delete;

    static constexpr std::uint32_t kRate = 44100;      ///< samples per second
    static constexpr std::size_t kSampleCount = 48510; ///< 1.1 seconds
    static constexpr std::size_t kHeaderSize = 44;     ///< bytes before the first sample
    static constexpr float kSampleFactor = 32000.0F;   ///< a little below full scale

    /// Returns the whole 16-bit mono WAV image, always the same bytes.
    static std::vector<std::uint8_t> render();

    /// Encodes samples of -1 to 1 as a WAV image. Aborts if its 32-bit sizes would overflow.
    static std::vector<std::uint8_t> wavData(std::span<const float> samples, std::uint32_t rate);
};

} // namespace vexmoor
