#include "CauldronArt.h"
#include "Flame.h"
#include "OverlayRenderer.h"
#include "PotGlow.h"
#include "Runes.h"
#include "SwarmItem.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <numbers>
#include <vector>

namespace vexmoor {
namespace {

constexpr int kItemDetail = 3;
constexpr int kWaterRow = 29;
constexpr int kMargin = CauldronArt::kSwarmMargin;

struct Step {
    double z;
    std::function<void()> draw;
};

/// The canvases of one frame. `show` is in front of the pot and omits what the pot hides.
struct Stage {
    std::shared_ptr<const PixelCanvas>
        pot;           ///< shared with the overlays' masks, which outlive the painting
    PixelCanvas& show; ///< kMargin columns wider than the pot on each side
    const Skin& skin;

    [[nodiscard]] bool potAt(int x, int y) const { return pot->at(x, y).a == 255; }
    void blend(int x, int y, Pixel pixel) const { show.blend(kMargin + x, y, pixel); }
};

/// Draws the ball of fire that represents an item without a picture.
QImage fireball(const Skin& skin) {
    PixelCanvas ball(8, 8);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            const double distance = std::hypot(x - 3.5, y - 3.5);
            if (distance < 4)
                ball.set(x, y,
                         distance < 1.8   ? skin.acidLight
                         : distance < 3.2 ? skin.spark
                                          : skin.acid);
        }
    }
    return ball.bitmapRep();
}

/// Scales the icon to `side` pixels and centres it in a transparent square with room to rotate.
QImage withRoom(const QImage& icon, int side, int room) {
    const QImage small = renderedOverlay({.image = icon, .w = side, .h = side});
    return small.copy((side - room) / 2, (side - room) / 2, room, room);
}

void drawItem(const Stage& stage, const QImage& icon, const SwarmItem::Pose& pose, bool sinking) {
    const int side = std::max(2, static_cast<int>(std::lround(pose.size * kItemDetail)));
    const int cells = static_cast<int>(std::ceil(pose.size * 1.42)) + 1;
    const double left = pose.x - cells / 2.0;
    const double top = pose.y - cells / 2.0;
    PixelCanvas::Overlay overlay{.image = withRoom(icon, side, cells * kItemDetail),
                                 .x = kMargin + static_cast<int>(std::floor(left)),
                                 .y = static_cast<int>(std::floor(top)),
                                 .w = cells,
                                 .h = cells,
                                 .detail = kItemDetail,
                                 .yOffset = top - std::floor(top),
                                 .xOffset = left - std::floor(left),
                                 .angle = pose.angle,
                                 .opacity = pose.opacity};
    const auto cell = [](double origin, int index) {
        return static_cast<int>(std::floor(origin + (index + 0.5) / kItemDetail));
    };
    if (pose.behindPot)
        overlay.keep = [pot = stage.pot, left, top, cell](int column, int row) {
            return pot->at(cell(left, column), cell(top, row)).a < 255;
        };
    else if (sinking)
        overlay.keep = [top, cell](int, int row) { return cell(top, row) < kWaterRow; };
    stage.show.addOverlay(std::move(overlay));
}

/// Draws a tail of embers along the item's path.
void drawTrail(const Stage& stage, const SwarmItem& item, double time) {
    const Pixel colours[] = {stage.skin.spark, stage.skin.spark,    stage.skin.acid,
                             stage.skin.acid,  stage.skin.acidDark, stage.skin.acidDark};
    int age = 0;
    for (const Pixel colour : colours) {
        const SwarmItem::Pose past = item.pose(time - 0.03 * ++age);
        const double jitter = SeededRNG::noise(static_cast<std::uint64_t>(time * 24), age, 5) - 0.5;
        const int x = static_cast<int>(std::lround(past.x + jitter * age));
        const int y = static_cast<int>(std::lround(past.y + jitter * 3));
        if (!past.behindPot || !stage.potAt(x, y))
            stage.blend(x, y, colour);
    }
}

/// Draws a spreading ring on the acid and drops above it.
void drawSplash(const Stage& stage, int column, double age) {
    constexpr double kLasts = 0.34;
    if (age < 0 || age > kLasts)
        return;
    const int reach = 1 + static_cast<int>(age * 22);
    for (const int x : {column - reach, column + reach}) {
        if (x >= 9 && x <= 24)
            stage.blend(x, 28, stage.skin.acidLight);
    }
    for (int drop = -2; drop <= 2; ++drop) {
        const double up = (60 - 9 * std::abs(drop)) * age - 190 * age * age;
        const int x = column + static_cast<int>(std::lround(drop * (1 + age * 9)));
        const int y = 27 - static_cast<int>(std::lround(up));
        if (y <= 28)
            stage.blend(x, y, drop % 2 == 0 ? stage.skin.acidLight : stage.skin.spark);
    }
}

void drawFlameOf(const Stage& stage, const SwarmItem& item, double time, std::uint64_t seed) {
    const double height = item.flameHeight(time);
    if (height < 1)
        return;
    PixelCanvas canvas(CauldronArt::kWidth, CauldronArt::kHeight);
    SeededRNG rng = SeededRNG::mixed(seed + static_cast<std::uint64_t>(time * 1000));
    Flame{.centre = item.poolColumn(),
          .base = CauldronArt::kFlameBase + 1,
          .height = height,
          .halfWidth = 4.5,
          .bend = 3,
          .phase = item.flamePhase() + 2 * std::numbers::pi * 2.7 * time}
        .paint(canvas, stage.skin, rng);
    stage.show.addOverlay({.image = canvas.bitmapRep(),
                           .x = kMargin,
                           .w = canvas.width(),
                           .h = canvas.height(),
                           .crisp = true});
}

/// Adds the drawing steps of one item at its own time, and of its flame and splash in front of it.
void addSteps(std::vector<Step>& steps, const Stage& stage, const SwarmItem& item, double time,
              const QImage& icon, std::uint64_t seed) {
    const SwarmItem::Pose pose = item.pose(time);
    if (time < SwarmItem::kSunk)
        steps.push_back({pose.depth, [&stage, &icon, item, pose, time] {
                             if (time > SwarmItem::kAppear && time < SwarmItem::kSplash)
                                 drawTrail(stage, item, time);
                             drawItem(stage, icon.isNull() ? fireball(stage.skin) : squared(icon),
                                      pose, time >= SwarmItem::kSplash);
                         }});
    steps.push_back({pose.depth + 1, [&stage, item, time, seed] {
                         drawFlameOf(stage, item, time, seed);
                         drawSplash(stage, item.poolColumn(), time - SwarmItem::kSplash);
                     }});
}

/// Paints the items from back to front. Returns the sum of the flames' heights.
double paintItems(const Stage& stage, double time, std::span<const QImage> icons,
                  std::uint64_t seed) {
    std::vector<Step> steps;
    double fire = 0;
    for (std::size_t i = 0; i < icons.size(); ++i) {
        const double age = time - static_cast<double>(i) * SwarmItem::kInterval;
        if (age < 0 || age >= SwarmItem::kEnd)
            continue;
        const SwarmItem item(seed, i);
        fire += item.flameHeight(age);
        addSteps(steps, stage, item, age, icons[i], seed + i);
    }
    std::ranges::stable_sort(steps, {}, &Step::z);
    for (const Step& step : steps)
        step.draw();
    return fire;
}

} // namespace

CauldronArt::SwarmFrame CauldronArt::swarm(double time, std::span<const QImage> icons,
                                           std::uint64_t seed, double lift, const Skin& skin) {
    const double stillUp = 1 - std::min(time / 0.45, 1.0);
    const int sink = static_cast<int>(stillUp * stillUp * lift);
    PixelCanvas scene(kWidth, kHeight);
    PixelCanvas pot(kWidth, kHeight);
    drawPot(pot, skin.body.hoverRows > 0 ? &scene : nullptr, skin, 0);
    PixelCanvas show(kWidth + 2 * kMargin, kHeight);
    const double fire =
        paintItems({std::make_shared<const PixelCanvas>(pot), show, skin}, time, icons, seed);

    const double strength = std::min(fire / 12, 1.0);
    PotGlow{.strength = strength, .step = static_cast<int>(time * 8)}.paint(pot, skin);
    paintRunes(pot, skin, strength);
    scene.merge(pot, 0, -sink);
    scene.merge(show.crop(kMargin, 0, kWidth, kHeight), 0, 0);
    return {std::move(scene), std::move(show)};
}

} // namespace vexmoor
