#pragma once

#include "AudioOutput.h"

#include "base/Path.h"

namespace vexmoor {

/// Plays through libcanberra, so on whatever the desktop's sounds are played. A sound has a thread
/// and a connection of its own while it sounds, because connecting waits for the server for as long
/// as that likes; between sounds nothing is kept. Any one thread at a time.
class CanberraOutput : public AudioOutput {
  public:
    /// Sounds pass through a short-lived private file in one of these folders, the first that
    /// takes it.
    explicit CanberraOutput(std::vector<Path> folders = defaultFolders());

    std::unique_ptr<AudioPlayer> play(WavPointer wav, double volume) override;

    /// The session's runtime folder, where there is one, and the one for temporary files.
    static std::vector<Path> defaultFolders();

  private:
    std::vector<Path> m_folders;
};

} // namespace vexmoor
