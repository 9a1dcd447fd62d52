// Measures the cost of an animation frame, including its conversion to the displayed pictures.
// Limits on one core, medians: idle 0.15 ms, burn 0.6 ms, swarm of ten 2 ms; the heap must not
// grow.

#include "art/CauldronArt.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

namespace vexmoor {
namespace {

constexpr int kScale = 12;

/// A gradient with a soft edge, which defeats shortcuts for flat images.
QImage icon(int side, int hue) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            image.setPixelColor(
                x, y, QColor::fromHsv((hue + x) % 360, 255 * y / side, 200, x < 2 ? 128 : 255));
    }
    return image;
}

const Skin& skinOf(const benchmark::State& state) {
    return Skin::all()[static_cast<std::size_t>(state.range(0))];
}

QImage tile(const PixelCanvas& scene) {
    return scene.crop(0, 20, 34, 34).nsImage(kScale);
}

void idleFrame(benchmark::State& state) {
    int tick = 0;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(tile(CauldronArt::idle(++tick, false, 0, skinOf(state))));
    state.SetLabel(std::string(skinOf(state).id));
}
BENCHMARK(idleFrame)->Arg(0)->Arg(12)->Arg(14)->Unit(benchmark::kMicrosecond);

/// The comparison with which an idle tile skips repaints.
void unchangedIdleFrame(benchmark::State& state) {
    const PixelCanvas before = CauldronArt::idle(64, false, 0, skinOf(state));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(CauldronArt::idle(65, false, 0, skinOf(state)) == before);
}
BENCHMARK(unchangedIdleFrame)->Arg(0)->Unit(benchmark::kMicrosecond);

void burnFrame(benchmark::State& state) {
    const QImage item = icon(static_cast<int>(state.range(1)), 20);
    int frame = 0;
    for ([[maybe_unused]] auto _ : state) {
        const double t = frame++ % 36 / 35.0;
        const CauldronArt::Frame burning =
            CauldronArt::burn({.t = t,
                               .height = 24 * std::min(1.0, t * 4),
                               .simmer = true,
                               .icon = item,
                               .seed = static_cast<std::uint64_t>(frame),
                               .splitAtPool = true,
                               .skin = skinOf(state)});
        benchmark::DoNotOptimize(tile(burning.scene));
        benchmark::DoNotOptimize(burning.flame.crop(0, 0, 34, 27).nsImage(kScale));
    }
    state.SetLabel(std::string(skinOf(state).id));
}
BENCHMARK(burnFrame)->Args({0, 64})->Args({0, 128})->Args({0, 256})->Args({12, 128})->Unit(
    benchmark::kMicrosecond);

std::vector<QImage> tenIcons(int side) {
    std::vector<QImage> icons;
    icons.reserve(10);
    for (int i = 0; i < 10; ++i)
        icons.push_back(icon(side, i * 36));
    return icons;
}

void showSwarmFrame(int frame, const std::vector<QImage>& icons, const Skin& skin) {
    const CauldronArt::SwarmFrame swarm =
        CauldronArt::swarm(frame % 102 / 24.0, icons, 77, 0, skin);
    benchmark::DoNotOptimize(tile(swarm.scene));
    benchmark::DoNotOptimize(swarm.flame.nsImage(kScale));
}

void swarmFrame(benchmark::State& state) {
    const std::vector<QImage> icons = tenIcons(static_cast<int>(state.range(1)));
    int frame = 0;
    for ([[maybe_unused]] auto _ : state)
        showSwarmFrame(frame++, icons, skinOf(state));
    state.SetLabel(std::string(skinOf(state).id));
}
BENCHMARK(swarmFrame)
    ->Args({0, 64})
    ->Args({0, 128})
    ->Args({0, 256})
    ->Args({12, 128})
    ->Unit(benchmark::kMicrosecond);

/// Fails if the heap is larger after 100,000 frames than after the first few hundred.
void heapAfterManyFrames(benchmark::State& state) {
    constexpr int kFrames = 100'000;
    const std::vector<QImage> icons = tenIcons(64);
    const auto paint = [&icons](int frame) {
        const Skin& skin = Skin::all()[static_cast<std::size_t>(frame) % Skin::all().size()];
        if (frame % 20 == 0)
            showSwarmFrame(frame, icons, skin);
        else
            benchmark::DoNotOptimize(
                CauldronArt::idle(frame, false, 0, skin).crop(0, 20, 34, 34).nsImage(3));
    };
    for ([[maybe_unused]] auto _ : state) {
        for (int frame = 0; frame < 500; ++frame)
            paint(frame);
        const std::size_t before = mallinfo2().uordblks;
        for (int frame = 0; frame < kFrames; ++frame)
            paint(frame);
        const std::size_t after = mallinfo2().uordblks;
        state.counters["grown_bytes"] = static_cast<double>(after) - static_cast<double>(before);
        if (after > before + 4096)
            state.SkipWithError("the heap grows");
    }
}
BENCHMARK(heapAfterManyFrames)->Iterations(1)->Unit(benchmark::kSecond);

} // namespace
} // namespace vexmoor
