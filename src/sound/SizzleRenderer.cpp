#include "SizzleRenderer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <string_view>

namespace vexmoor {
namespace {

struct Pop {
    double start; ///< seconds
    double end;
    double frequency; ///< Hz
};
constexpr double kPopLength = 0.09;
constexpr std::array<Pop, 3> kPops{{{0.12, 0.21, 520}, {0.38, 0.47, 410}, {0.66, 0.75, 640}}};

/// White noise from -1 to 1 from a 64-bit xorshift generator; the same sequence on each run.
class Noise {
  public:
    float next() {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 7;
        m_state ^= m_state << 17;
        const double uniform = static_cast<double>(m_state >> 11) * 0x1p-53;
        return static_cast<float>(2 * uniform - 1);
    }

  private:
    std::uint64_t m_state = 0xA4F2681C98984687;
};

double envelope(double t) {
    return std::min(t / 0.04, 1.0) * std::exp(-3.2 * t);
}

/// The phase is the time since the pop's start times its current frequency, not an integral; the
/// sound depends on it.
float popSample(const Pop& pop, double t) {
    if (t < pop.start || t >= pop.end)
        return 0;
    const double d = t - pop.start;
    const double p = d / kPopLength;
    return static_cast<float>(
        (1 - p) * std::sin(d * (1 - 0.6 * p) * pop.frequency * 2 * std::numbers::pi) * 0.35);
}

/// Writes the header's integers, little-endian.
class ByteWriter {
  public:
    explicit ByteWriter(std::size_t size) { m_bytes.reserve(size); }

    void tag(std::string_view tag) { m_bytes.insert(m_bytes.end(), tag.begin(), tag.end()); }
    void number(std::uint32_t value, int size) {
        for (int i = 0; i < size; ++i)
            m_bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
    std::vector<std::uint8_t> take() { return std::move(m_bytes); }

  private:
    std::vector<std::uint8_t> m_bytes;
};

} // namespace

std::vector<std::uint8_t> SizzleRenderer::render() {
    std::vector<float> samples(kSampleCount);
    Noise noise;
    float coloured = 0;
    for (std::size_t i = 0; i < kSampleCount; ++i) {
        const double t = static_cast<double>(i) / kRate;
        coloured += (noise.next() - coloured) * 0.18F;
        float sample = coloured * static_cast<float>(envelope(t)) * 0.8F;
        for (const Pop& pop : kPops)
            sample += popSample(pop, t);
        samples[i] = std::clamp(sample, -1.0F, 1.0F);
    }
    return wavData(samples, kRate);
}

std::vector<std::uint8_t> SizzleRenderer::wavData(std::span<const float> samples,
                                                  std::uint32_t rate) {
    constexpr std::uint32_t kSampleSize = 2;
    constexpr std::uint32_t kAfterSize =
        kHeaderSize - 8; // the part of the header that the RIFF size includes
    if (samples.size() > (UINT32_MAX - kAfterSize) / kSampleSize || rate > UINT32_MAX / kSampleSize)
        std::abort();
    const auto dataSize = static_cast<std::uint32_t>(samples.size()) * kSampleSize;
    ByteWriter wav(kHeaderSize + dataSize);
    wav.tag("RIFF");
    wav.number(kAfterSize + dataSize, 4);
    wav.tag("WAVEfmt ");
    wav.number(16, 4); // size of the format chunk
    wav.number(1, 2);  // integer PCM
    wav.number(1, 2);  // channels
    wav.number(rate, 4);
    wav.number(rate * kSampleSize, 4);
    wav.number(kSampleSize, 2);
    wav.number(8 * kSampleSize, 2);
    wav.tag("data");
    wav.number(dataSize, 4);
    for (const float sample : samples)
        wav.number(static_cast<std::uint16_t>(static_cast<std::int16_t>(sample * kSampleFactor)),
                   kSampleSize);
    return wav.take();
}

} // namespace vexmoor
