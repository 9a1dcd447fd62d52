#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace vexmoor {

/// A WAV image that several may hold.
using WavPointer = std::shared_ptr<const std::vector<std::uint8_t>>;

/// One sound on its way to the user's ears; destroying it ends it.
class AudioPlayer {
  public:
    virtual ~AudioPlayer() = default;

    /// Whether it still sounds, or is about to. False at once where nothing can be heard.
    [[nodiscard]] virtual bool isPlaying() const = 0;
};

/// Where sounds are played (port).
class AudioOutput {
  public:
    virtual ~AudioOutput() = default;

    /// Begins to play at a volume of 0 to 1 and returns at once, whatever the state of the sound
    /// server. Null where no player can be made; that nothing can be heard is not told otherwise.
    virtual std::unique_ptr<AudioPlayer> play(WavPointer wav, double volume) = 0;
};

} // namespace vexmoor
