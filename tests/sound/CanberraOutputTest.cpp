#include "sound/CanberraOutput.h"

#include "sound/Sizzle.h"
#include "sound/SizzleRenderer.h"
#include "support/BackgroundProgram.h"
#include "support/Command.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <cstring>

namespace vexmoor {
namespace {

using test::BackgroundProgram;
using test::eventually;

/// The programs and the plug-in that a sound goes through; an empty word when all are there.
std::string whatIsMissing() {
    for (const char* program : {"pulseaudio", "parec", "pactl"})
        if (!test::Command::exists(program))
            return std::string(program) + " is not installed";
    return {};
}

/// A sound server of the test's own, whose only output is recorded to a file.
class SoundServer {
  public:
    explicit SoundServer(const Path& folder)
        : m_socket(folder / "sound-socket"),
          m_recording(folder / "recording"), m_environment{{"HOME", folder},
                                                           {"XDG_RUNTIME_DIR", folder},
                                                           {"PULSE_SERVER", address()},
                                                           {"DBUS_SESSION_BUS_ADDRESS",
                                                            "unix:path=/nonexistent"}},
          m_server({"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1",
                    "--use-pid-file=no", "--log-level=error", "-L",
                    "module-null-sink sink_name=nul rate=44100", "-L",
                    "module-native-protocol-unix auth-anonymous=1 socket=" + m_socket.string()},
                   {.environment = m_environment}) {
        setenv("PULSE_SERVER", address().c_str(), 1);
        if (!eventually([this] { return test::listensAt(m_socket); }))
            throw std::runtime_error("the sound server does not start");
    }
    ~SoundServer() { unsetenv("PULSE_SERVER"); }
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;

    void record() {
        m_recorder.emplace(
            std::vector<std::string>{"parec", "-d", "nul.monitor", "--rate=44100", "--channels=1",
                                     "--format=s16le", "--latency-msec=10"},
            BackgroundProgram::Setting{.environment = m_environment, .output = m_recording});
        ASSERT_TRUE(recordsAnother(1));
    }

    /// Waits until so many more seconds of sound, or silence, were recorded.
    [[nodiscard]] bool recordsAnother(double seconds) const {
        const auto wanted =
            recorded().size() + static_cast<std::size_t>(seconds * SizzleRenderer::kRate);
        return eventually([&] { return recorded().size() > wanted; });
    }

    [[nodiscard]] std::vector<std::int16_t> recorded() const {
        const std::string bytes = test::contents(m_recording);
        std::vector<std::int16_t> samples(bytes.size() / 2);
        if (!samples.empty())
            std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
        return samples;
    }

    /// How many sounds are playing on it now.
    [[nodiscard]] int soundCount() const {
        auto command = test::Command({"pactl", "list", "short", "sink-inputs"});
        for (const auto& [name, value] : m_environment)
            command.with(name, value);
        const auto result = command.run();
        return static_cast<int>(std::count(result.output.begin(), result.output.end(), '\n'));
    }

    void stop() { m_server.signal(SIGSTOP); }
    void die() { m_server.kill(); }

  private:
    [[nodiscard]] std::string address() const { return "unix:" + m_socket.string(); }

    Path m_socket;
    Path m_recording;
    BackgroundProgram::Environment m_environment;
    BackgroundProgram m_server;
    std::optional<BackgroundProgram> m_recorder;
};

/// The samples of the sizzle at a volume.
std::vector<std::int16_t> heardAt(double volume) {
    const auto wav = SizzleRenderer::render();
    std::vector<std::int16_t> samples((wav.size() - SizzleRenderer::kHeaderSize) / 2);
    std::memcpy(samples.data(), wav.data() + SizzleRenderer::kHeaderSize, samples.size() * 2);
    for (std::int16_t& sample : samples)
        sample = static_cast<std::int16_t>(std::lround(sample * volume));
    return samples;
}

/// A server lets go of the first hundredths of a second, where the sound is hardly there, when it
/// was caught in the middle of a period.
constexpr std::size_t kStart = SizzleRenderer::kRate / 50;
constexpr int kTolerance = 2;

bool sameFrom(std::size_t first, std::size_t last, const std::vector<std::int16_t>& recording,
              std::size_t offset, const std::vector<std::int16_t>& sound) {
    for (std::size_t i = first; i < last; ++i)
        if (std::abs(recording[offset + i] - sound[i]) > kTolerance)
            return false;
    return true;
}

/// Where in the recording the sound begins that a short piece of it is found of.
std::optional<std::size_t> beginning(const std::vector<std::int16_t>& recording,
                                     const std::vector<std::int16_t>& sound) {
    const std::size_t piece = sound.size() / 4;
    for (std::size_t offset = 0; offset + sound.size() <= recording.size(); ++offset)
        if (sameFrom(piece, piece + 100, recording, offset, sound))
            return offset;
    return std::nullopt;
}

WavPointer sizzleWav() {
    return std::make_shared<const std::vector<std::uint8_t>>(SizzleRenderer::render());
}

bool ends(const AudioPlayer& player) {
    return eventually([&] { return !player.isPlaying(); });
}

class CanberraOutputTest : public testing::Test {
  protected:
    void SetUp() override {
        if (const std::string missing = whatIsMissing(); !missing.empty())
            GTEST_SKIP() << missing;
    }

    [[nodiscard]] bool holdsNoSound() const {
        return std::none_of(std::filesystem::directory_iterator(m_folder.path()), {},
                            [](const auto& entry) { return entry.path().extension() == ".wav"; });
    }

    test::TemporaryDirectory m_folder;
};

TEST_F(CanberraOutputTest, PlaysWhatWasRenderedOnceHoweverOftenItIsAsked) {
    SoundServer server(m_folder.path());
    CanberraOutput output({m_folder.path()});
    Sizzle sizzle(output);
    server.record();
    sizzle.play();
    sizzle.play();
    ASSERT_TRUE(eventually([&] { return server.soundCount() == 1; }));
    sizzle.play();
    ASSERT_TRUE(eventually([&] { return server.soundCount() == 0; }));
    ASSERT_TRUE(server.recordsAnother(1.2)) << "a second sound would be heard in that time";
    const auto recording = server.recorded();
    const auto sound = heardAt(0.6);
    const auto offset = beginning(recording, sound);
    ASSERT_TRUE(offset);
    EXPECT_TRUE(sameFrom(kStart, sound.size(), recording, *offset, sound));
    const auto silent = [](std::int16_t sample) { return sample == 0; };
    const auto begin = recording.begin() + static_cast<std::ptrdiff_t>(*offset);
    EXPECT_TRUE(std::all_of(recording.begin(), begin, silent));
    EXPECT_TRUE(std::all_of(begin + std::ssize(sound), recording.end(), silent)) << "it overlaps";
    EXPECT_TRUE(holdsNoSound());
}

TEST_F(CanberraOutputTest, TellsItsEndAndSoundsAgain) {
    SoundServer server(m_folder.path());
    CanberraOutput output({m_folder / "missing", m_folder.path()});
    for (int i = 0; i < 2; ++i) {
        const auto player = output.play(sizzleWav(), 0.6);
        ASSERT_TRUE(eventually([&] { return server.soundCount() == 1; }));
        EXPECT_TRUE(player->isPlaying());
        EXPECT_TRUE(ends(*player));
        EXPECT_TRUE(eventually([&] { return server.soundCount() == 0; }));
    }
}

TEST_F(CanberraOutputTest, EndsWithTheServerAndWithItsOwner) {
    SoundServer server(m_folder.path());
    CanberraOutput output({m_folder.path()});
    auto player = output.play(sizzleWav(), 0.6);
    ASSERT_TRUE(eventually([&] { return server.soundCount() == 1; }));
    player.reset();
    ASSERT_TRUE(eventually([&] { return server.soundCount() == 0; }));
    player = output.play(sizzleWav(), 0.6);
    ASSERT_TRUE(eventually([&] { return server.soundCount() == 1; }));
    server.die();
    EXPECT_TRUE(ends(*player));
    EXPECT_TRUE(holdsNoSound());
}

TEST_F(CanberraOutputTest, DoesNotWaitForAServerThatHangs) {
    SoundServer server(m_folder.path());
    server.stop();
    CanberraOutput output({m_folder.path()});
    const auto player = output.play(sizzleWav(), 0.6);
    EXPECT_TRUE(player->isPlaying());
    server.die(); // lets go of the thread
    EXPECT_TRUE(ends(*player));
}

TEST(CanberraOutput, IsSilentWithoutAServerOrAPlaceForTheSound) {
    const test::TemporaryDirectory folder;
    setenv("PULSE_SERVER", ("unix:" + (folder / "nobody").string()).c_str(), 1);
    for (const Path& place : {folder.path(), folder / "missing"}) {
        CanberraOutput output({place});
        EXPECT_TRUE(ends(*output.play(sizzleWav(), 0.6)));
    }
    unsetenv("PULSE_SERVER");
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

} // namespace
} // namespace vexmoor
