#pragma once

#include "AudioOutput.h"

#include "intake/Ports.h"

#include <memory>
#include <vector>

namespace vexmoor {

/// The sound played when a batch is accepted. play() has no effect while the sound is still
/// playing. Main thread only.
class Sizzle : public SizzlePlayer {
  public:
    explicit Sizzle(AudioOutput& output) : m_output(output) {}

    /// Plays the sound if possible. After a failure the next call tries again.
    void play() override;

  private:
    AudioOutput& m_output;
    std::vector<std::unique_ptr<AudioPlayer>> m_players;
    WavPointer m_wav; ///< rendered on first use
};

} // namespace vexmoor
