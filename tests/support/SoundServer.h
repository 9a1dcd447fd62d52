#pragma once

#include "support/BackgroundProgram.h"

#include <csignal>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor::test {

/// Sound as 16-bit samples of one channel, 44100 a second.
using Samples = std::vector<std::int16_t>;
inline constexpr std::size_t kSampleRate = 44100;

/// A sound server of the test's own, whose only output can be recorded.
class SoundServer {
  public:
    /// What must be installed for it and is not; nothing where all is there.
    static std::optional<std::string> missing();

    /// Sockets and recordings lie in the folder. Throws where the server does not come up.
    explicit SoundServer(const Path& folder);

    /// What PULSE_SERVER must be for a program to be heard here.
    [[nodiscard]] std::string address() const { return "unix:" + m_socket.string(); }

    /// Starts a recording; it is empty until the server sends the first samples, a second or two
    /// later.
    void record();
    /// Waits until so many more seconds of sound, or silence, were recorded.
    [[nodiscard]] bool recordsAnother(double seconds) const;
    [[nodiscard]] Samples recorded() const;

    /// How many sounds are playing on it now.
    [[nodiscard]] int soundCount() const;

    void stop() { m_server.signal(SIGSTOP); }
    void die() { m_server.kill(); }

  private:
    Path m_socket;
    Path m_recording;
    BackgroundProgram::Environment m_environment;
    BackgroundProgram m_server;
    std::optional<BackgroundProgram> m_recorder;
};

/// The samples of a WAV image with the usual header of 44 bytes, at a volume.
Samples samplesOf(const std::vector<std::uint8_t>& wav, double volume);

/// Whether the recording has these samples of the sound, which began at `offset` in it; a server's
/// arithmetic may be off by two steps.
bool sameFrom(std::size_t first, std::size_t last, const Samples& recording, std::size_t offset,
              const Samples& sound);

/// Where in the recording the sound begins that a short piece of it is found of.
std::optional<std::size_t> beginning(const Samples& recording, const Samples& sound);

} // namespace vexmoor::test
