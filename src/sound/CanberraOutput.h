#pragma once

#include "AudioOutput.h"

#include "base/Path.h"

namespace vexmoor {

/// Plays through libcanberra, which uses the desktop's sound server. Each sound has its own thread
/// and connection while it plays, because connecting can block indefinitely; nothing is kept
/// between sounds. Not thread-safe.
class CanberraOutput : public AudioOutput {
  public:
    /// Sounds pass through a temporary private file in the first of these folders where one can be
    /// created.
    explicit CanberraOutput(std::vector<Path> folders = defaultFolders());

    std::unique_ptr<AudioPlayer> play(WavPointer wav, double volume) override;

    /// Returns the session's runtime folder, if there is one, and the folder for temporary files.
    static std::vector<Path> defaultFolders();

  private:
    std::vector<Path> m_folders;
};

} // namespace vexmoor
