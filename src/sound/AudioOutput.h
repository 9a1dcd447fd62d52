#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace vexmoor {

/// A WAV image with shared ownership.
using WavPointer = std::shared_ptr<const std::vector<std::uint8_t>>;

/// A playing sound. Destroying it stops the sound.
class AudioPlayer {
  public:
    virtual ~AudioPlayer() = default;

    /// True while the sound plays or is about to. Becomes false immediately if it cannot be played.
    [[nodiscard]] virtual bool isPlaying() const = 0;
};

/// Plays sounds (port).
class AudioOutput {
  public:
    virtual ~AudioOutput() = default;

    /// Starts playing at a volume of 0 to 1 without waiting for the sound server. Returns null if
    /// no player can be created; other failures are not reported.
    virtual std::unique_ptr<AudioPlayer> play(WavPointer wav, double volume) = 0;
};

} // namespace vexmoor
