#include "Show.h"

#include "SampleIcons.h"

#include "art/BurnCurve.h"
#include "art/CauldronArt.h"

namespace vexmoor::arttool {
namespace {

constexpr std::uint64_t kSeed = 20;

const std::vector<QImage>& icons() {
    static const std::vector<QImage> all = sampleIcons();
    return all;
}

PixelCanvas burnFrame(int frame, const Skin& skin) {
    const double t = BurnCurve::moment(frame);
    const std::uint64_t seed = BurnCurve::frameSeed(kSeed, t);
    return CauldronArt::burn({.t = t,
                              .height = BurnCurve::height(t, BurnCurve::kFullHeight, seed),
                              .simmer = BurnCurve::simmers(t),
                              .icon = icons().front(),
                              .seed = seed,
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
    return show == "idle" ? 90 : show == "burn" ? BurnCurve::kFrames : 102;
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
