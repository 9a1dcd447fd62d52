#pragma once

#include "AudioOutput.h"

#include "intake/Ports.h"

#include <memory>
#include <vector>

namespace vexmoor {

/// The sound of a batch that is taken in. It never overlaps itself: asked for while one still
/// sounds, it stays silent. Main thread only.
class Sizzle : public SizzlePlayer {
  public:
    explicit Sizzle(AudioOutput& output) : m_output(output) {}

    /// Silent where there is no way to play it; the next call tries again.
    void play() override;

  private:
    AudioOutput& m_output;
    std::vector<std::unique_ptr<AudioPlayer>> m_players;
    WavPointer m_wav; ///< rendered at the first need
};

} // namespace vexmoor
