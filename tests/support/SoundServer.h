#pragma once

#include "support/BackgroundProgram.h"

#include <csignal>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor::test {

/// 16-bit mono samples at 44100 Hz.
using Samples = std::vector<std::int16_t>;
inline constexpr std::size_t kSampleRate = 44100;

/// A private sound server whose only output can be recorded.
class SoundServer {
  public:
    /// Returns the name of a missing package, or nullopt.
    static std::optional<std::string> missing();

    /// Sockets and recordings are in the folder. Throws if the server does not start.
    explicit SoundServer(const Path& folder);

    /// Returns the value of PULSE_SERVER for programs that use this server.
    [[nodiscard]] std::string address() const { return "unix:" + m_socket.string(); }

    /// Starts a recording. It stays empty until the server sends the first samples after a second
    /// or two.
    void record();
    /// Waits until the recording is this much longer.
    [[nodiscard]] bool recordsAnother(double seconds) const;
    [[nodiscard]] Samples recorded() const;

    /// Returns the number of sounds being played.
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

/// Returns the samples of a WAV image with a 44-byte header, scaled by the volume.
Samples samplesOf(const std::vector<std::uint8_t>& wav, double volume);

/// True if the recording contains these samples of the sound, which starts at `offset`, within a
/// rounding error of two steps.
bool sameFrom(std::size_t first, std::size_t last, const Samples& recording, std::size_t offset,
              const Samples& sound);

/// Returns where the sound starts in the recording, found by a short part of it.
std::optional<std::size_t> beginning(const Samples& recording, const Samples& sound);

} // namespace vexmoor::test
