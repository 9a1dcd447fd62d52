#include "sound/CanberraOutput.h"

#include "sound/Sizzle.h"
#include "sound/SizzleRenderer.h"
#include "support/SoundServer.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>

namespace vexmoor {
namespace {

using test::beginning;
using test::eventually;
using test::sameFrom;

/// A sound server that this process plays on.
class SoundServer : public test::SoundServer {
  public:
    explicit SoundServer(const Path& folder) : test::SoundServer(folder) {
        setenv("PULSE_SERVER", address().c_str(), 1);
    }
    ~SoundServer() { unsetenv("PULSE_SERVER"); }
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;
};

/// Servers drop the first hundredths of a second, in which the sound is nearly silent, if it starts
/// in the middle of a period.
constexpr std::size_t kStart = SizzleRenderer::kRate / 50;

WavPointer sizzleWav() {
    return std::make_shared<const std::vector<std::uint8_t>>(SizzleRenderer::render());
}

bool ends(const AudioPlayer& player) {
    return eventually([&] { return !player.isPlaying(); });
}

class CanberraOutputTest : public testing::Test {
  protected:
    void SetUp() override {
        if (const auto program = test::SoundServer::missing())
            GTEST_SKIP() << *program << " is not installed";
    }

    [[nodiscard]] bool holdsNoSound() const {
        return std::none_of(std::filesystem::directory_iterator(m_folder.path()), {},
                            [](const auto& entry) { return entry.path().extension() == ".wav"; });
    }

    test::TemporaryDirectory m_folder;
};

TEST_F(CanberraOutputTest, PlaysTheRenderedSamplesOnce) {
    SoundServer server(m_folder.path());
    CanberraOutput output({m_folder.path()});
    Sizzle sizzle(output);
    server.record();
    ASSERT_TRUE(server.recordsAnother(0.1));
    sizzle.play();
    sizzle.play();
    ASSERT_TRUE(eventually([&] { return server.soundCount() == 1; }));
    sizzle.play();
    ASSERT_TRUE(eventually([&] { return server.soundCount() == 0; }));
    ASSERT_TRUE(server.recordsAnother(1.2)) << "a second sound would have been recorded";
    const auto recording = server.recorded();
    const auto sound = test::samplesOf(SizzleRenderer::render(), 0.6);
    const auto offset = beginning(recording, sound);
    ASSERT_TRUE(offset);
    EXPECT_TRUE(sameFrom(kStart, sound.size(), recording, *offset, sound));
    const auto silent = [](std::int16_t sample) { return sample == 0; };
    const auto begin = recording.begin() + static_cast<std::ptrdiff_t>(*offset);
    EXPECT_TRUE(std::all_of(recording.begin(), begin, silent));
    EXPECT_TRUE(std::all_of(begin + std::ssize(sound), recording.end(), silent))
        << "sounds overlap";
    EXPECT_TRUE(holdsNoSound());
}

TEST_F(CanberraOutputTest, ReportsItsEndAndPlaysAgain) {
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

TEST_F(CanberraOutputTest, StopsWithTheServerAndOnDestruction) {
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

TEST_F(CanberraOutputTest, DoesNotBlockOnAHangingServer) {
    SoundServer server(m_folder.path());
    server.stop();
    CanberraOutput output({m_folder.path()});
    const auto player = output.play(sizzleWav(), 0.6);
    EXPECT_TRUE(player->isPlaying());
    server.die(); // unblocks the thread
    EXPECT_TRUE(ends(*player));
}

TEST(CanberraOutput, FailsSilentlyWithoutServerOrTemporaryFolder) {
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
