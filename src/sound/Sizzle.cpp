#include "Sizzle.h"

#include "SizzleRenderer.h"

namespace vexmoor {
namespace {

constexpr double kVolume = 0.6;

}

void Sizzle::play() {
    std::erase_if(m_players, [](const auto& player) { return !player->isPlaying(); });
    if (!m_players.empty())
        return;
    if (!m_wav)
        m_wav = std::make_shared<const std::vector<std::uint8_t>>(SizzleRenderer::render());
    if (auto player = m_output.play(m_wav, kVolume))
        m_players.push_back(std::move(player));
}

} // namespace vexmoor
