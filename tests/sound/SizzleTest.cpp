#include "sound/Sizzle.h"

#include "sound/SizzleRenderer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>

namespace vexmoor {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// 64-bit FNV-1a.
std::uint64_t fingerprint(const Bytes& bytes) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const std::uint8_t byte : bytes)
        hash = (hash ^ byte) * 0x100000001b3;
    return hash;
}

std::string hexadecimal(const Bytes& bytes, std::size_t from, std::size_t count) {
    static const char* const kDigits = "0123456789abcdef";
    std::string text;
    for (std::size_t i = from; i < from + count; ++i)
        text += {kDigits[bytes.at(i) >> 4], kDigits[bytes.at(i) & 15]};
    return text;
}

/// An output that plays until the test ends the sound.
struct FakeOutput : AudioOutput {
    struct Player : AudioPlayer {
        explicit Player(const FakeOutput& output)
            : m_output(output), m_number(output.wavs.size()) {}
        [[nodiscard]] bool isPlaying() const override { return m_output.ended < m_number; }
        const FakeOutput& m_output;
        std::size_t m_number;
    };

    std::unique_ptr<AudioPlayer> play(WavPointer wav, double volume) override {
        if (broken)
            return nullptr;
        EXPECT_EQ(volume, 0.6);
        wavs.push_back(std::move(wav));
        return std::make_unique<Player>(*this);
    }

    bool broken = false;
    std::size_t ended = 0;
    std::vector<WavPointer> wavs;
};

TEST(SizzleRenderer, RendersIdenticalBytesOnEveryPlatform) {
    const Bytes wav = SizzleRenderer::render();
    ASSERT_EQ(wav.size(), 97064U);
    EXPECT_EQ(hexadecimal(wav, 0, 44), "52494646207b010057415645" // RIFF, 97056, WAVE
                                       "666d7420100000000100010044ac000088580100" // fmt
                                       "0200100064617461"
                                       "fc7a0100"); // data, 97020
    EXPECT_EQ(hexadecimal(wav, 44, 2), "0000");
    // The fingerprint of an image computed by an independent program in another language.
    EXPECT_EQ(fingerprint(wav), 0xd3dd0c56476cd95aU);
}

TEST(SizzleRenderer, TruncatesSamplesTowardsZero) {
    const std::vector<float> samples{1.0F, -1.0F, 0.00005F, -0.00005F, 0.5F};
    const Bytes wav = SizzleRenderer::wavData(samples, 8000);
    EXPECT_EQ(hexadecimal(wav, 44, 10), "007d"   // 32000
                                        "0083"   // -32000
                                        "0100"   // 1.6
                                        "ffff"   // -1.6
                                        "803e"); // 16000
    EXPECT_EQ(hexadecimal(wav, 24, 8), "401f0000803e0000");
}

TEST(Sizzle, DoesNotOverlapAndPlaysAgainAfterItsEnd) {
    FakeOutput output;
    Sizzle sizzle(output);
    sizzle.play();
    sizzle.play();
    EXPECT_EQ(output.wavs.size(), 1U);
    output.ended = 1;
    sizzle.play();
    sizzle.play();
    EXPECT_EQ(output.wavs.size(), 2U);
    EXPECT_EQ(output.wavs.at(0), output.wavs.at(1)) << "the sound was rendered twice";
    EXPECT_EQ(*output.wavs.at(0), SizzleRenderer::render());
}

TEST(Sizzle, RetriesAfterAFailure) {
    FakeOutput output;
    Sizzle sizzle(output);
    output.broken = true;
    sizzle.play();
    output.broken = false;
    sizzle.play();
    EXPECT_EQ(output.wavs.size(), 1U);
}

} // namespace
} // namespace vexmoor
