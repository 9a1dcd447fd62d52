#include "SoundServer.h"

#include "support/Command.h"
#include "support/TemporaryDirectory.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>

namespace vexmoor::test {

std::optional<std::string> SoundServer::missing() {
    for (const char* program : {"pulseaudio", "parec", "pactl"})
        if (!Command::exists(program))
            return program;
    return std::nullopt;
}

SoundServer::SoundServer(const Path& folder)
    : m_socket(folder / "sound-socket"),
      m_recording(folder / "recording"), m_environment{{"HOME", folder},
                                                       {"XDG_RUNTIME_DIR", folder},
                                                       {"PULSE_SERVER", address()},
                                                       {"DBUS_SESSION_BUS_ADDRESS",
                                                        "unix:path=/nonexistent"}},
      m_server({"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                "--log-level=error", "-L", "module-null-sink sink_name=nul rate=44100 norewinds=1",
                "-L", "module-native-protocol-unix auth-anonymous=1 socket=" + m_socket.string()},
               {.environment = m_environment}) {
    if (!eventually([this] { return listensAt(m_socket); }))
        throw std::runtime_error("the sound server does not start");
}

void SoundServer::record() {
    m_recorder.emplace(
        std::vector<std::string>{"parec", "-d", "nul.monitor", "--rate=44100", "--channels=1",
                                 "--format=s16le", "--latency-msec=10"},
        BackgroundProgram::Setting{.environment = m_environment, .output = m_recording});
}

bool SoundServer::recordsAnother(double seconds) const {
    const auto wanted = recorded().size() + static_cast<std::size_t>(seconds * kSampleRate);
    return eventually([&] { return recorded().size() > wanted; });
}

Samples SoundServer::recorded() const {
    const std::string bytes = contents(m_recording);
    Samples samples(bytes.size() / 2);
    if (!samples.empty())
        std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
    return samples;
}

int SoundServer::soundCount() const {
    Command command({"pactl", "list", "short", "sink-inputs"});
    for (const auto& [name, value] : m_environment)
        command.with(name, value);
    const auto result = command.run();
    return static_cast<int>(std::count(result.output.begin(), result.output.end(), '\n'));
}

Samples samplesOf(const std::vector<std::uint8_t>& wav, double volume) {
    constexpr std::size_t kHeaderSize = 44;
    Samples samples((wav.size() - kHeaderSize) / 2);
    std::memcpy(samples.data(), wav.data() + kHeaderSize, samples.size() * 2);
    for (std::int16_t& sample : samples)
        sample = static_cast<std::int16_t>(std::lround(sample * volume));
    return samples;
}

bool sameFrom(std::size_t first, std::size_t last, const Samples& recording, std::size_t offset,
              const Samples& sound) {
    constexpr int kTolerance = 2;
    for (std::size_t i = first; i < last; ++i)
        if (std::abs(recording[offset + i] - sound[i]) > kTolerance)
            return false;
    return true;
}

std::optional<std::size_t> beginning(const Samples& recording, const Samples& sound) {
    const std::size_t piece = sound.size() / 4;
    for (std::size_t offset = 0; offset + sound.size() <= recording.size(); ++offset)
        if (sameFrom(piece, piece + 100, recording, offset, sound))
            return offset;
    return std::nullopt;
}

} // namespace vexmoor::test
