#include "Show.h"

#include "SampleIcons.h"

#include "art/CauldronArt.h"

#include <algorithm>
#include <cmath>

namespace vexmoor::arttool {
namespace {

constexpr int kBurnFrames = 36;
constexpr std::uint64_t kSeed = 20;

const std::vector<QImage>& icons() {
    static const std::vector<QImage> all = sampleIcons();
    return all;
}

double burnHeight(double t, SeededRNG rng) {
    constexpr double kHeight = 24;
    if (t < 0.3)
        return kHeight * (1 - std::pow(1 - t / 0.3, 3));
    if (t < 0.78)
        return kHeight + 2 * rng.uniform() - 1;
    return kHeight * (1 - std::pow((t - 0.78) / 0.22, 2));
}

PixelCanvas burnFrame(int frame, const Skin& skin) {
    const double t = frame / (kBurnFrames - 1.0);
    const SeededRNG rng = SeededRNG::mixed(kSeed ^ static_cast<std::uint64_t>(t * 1000));
    return CauldronArt::burn({.t = t,
                              .height = burnHeight(t, rng),
                              .simmer = t > 0.05 && t < 0.9,
                              .icon = icons().front(),
                              .seed = rng.state,
                              .skin = skin})
        .scene;
}

PixelCanvas swarmFrame(int frame, const Skin& skin) {
    auto [scene, flame] = CauldronArt::swarm(frame / 24.0, icons(), kSeed, 0, skin);
    PixelCanvas both(flame.width(), flame.height());
    scene.removeOverlays();
    both.merge(scene, CauldronArt::kSwarmMargin, 0);
    both.merge(flame, 0, 0);
    return both;
}

} // namespace

const std::vector<std::string>& showNames() {
    static const std::vector<std::string> names{"idle", "burn", "swarm"};
    return names;
}

int frameCount(const std::string& show) {
    return show == "idle" ? 90 : show == "burn" ? kBurnFrames : 102;
}

int framesPerSecond(const std::string& show) {
    return show == "idle" ? 8 : 24;
}

PixelCanvas showFrame(const std::string& show, int frame, const Skin& skin) {
    if (show == "burn")
        return burnFrame(frame, skin);
    if (show == "swarm")
        return swarmFrame(frame, skin);
    return CauldronArt::idle(frame, false, 0, skin);
}

} // namespace vexmoor::arttool
