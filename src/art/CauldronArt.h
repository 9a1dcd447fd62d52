#pragma once

#include "PixelCanvas.h"
#include "SeededRNG.h"

#include "skins/Skin.h"

#include <span>

namespace vexmoor {

/// Paints the cauldron: idle, burning one item, devouring many. The same arguments always give the
/// same pixels. Any thread, but for the current skin, which belongs to the main thread.
class CauldronArt {
  public:
    /// Every frame's size; the pot stands on its last row.
    static constexpr int kWidth = 34;
    static constexpr int kHeight = 54;
    /// How far a swarm's flame canvas reaches beyond the frame on either side.
    static constexpr int kSwarmMargin = 16;
    /// The row flames stand on, just above the acid.
    static constexpr int kFlameBase = 27;

    /// The pot with all that is in or behind it, and the flames alone, to be shown above the tile.
    struct Frame {
        PixelCanvas scene;
        PixelCanvas flame;
    };

    /// As Frame, but the flame canvas is wider by kSwarmMargin columns on both sides, so that its
    /// column kSwarmMargin is the scene's column 0.
    struct SwarmFrame {
        PixelCanvas scene;
        PixelCanvas flame;
    };

    /// One moment of the burn.
    struct Burn {
        double t = 0;             ///< 0 to 1 through the burn
        double height = 0;        ///< of the flame, in rows
        bool simmer = false;      ///< the acid boils and lights the pot
        QImage icon = {};         ///< the item; null burns without one
        std::uint64_t seed = 1;   ///< this frame's
        bool splitAtPool = false; ///< the flame's upper part is shown by another window
        double lift = 0;          ///< how far the pot floated when the burn began
        const Skin& skin;
    };

    /// The skin in use; iron at first.
    static const Skin& current();
    static void setCurrent(const Skin& skin);

    /// Paints the pot, raised by `lift` rows. With a ground canvas only the floating rows go on
    /// `pot` and the rest on `ground`.
    static void drawPot(PixelCanvas& pot, PixelCanvas* ground, const Skin& skin, int lift);

    /// The idling pot at a tick of an eighth of a second. `still`: without bubbles or bobbing.
    static PixelCanvas idle(int tick, bool still, double subtick, const Skin& skin);

    /// How far a floating pot is above its place at a tick, in rows; 0 for those that stand.
    static double hoverLift(double tick, const Skin& skin);

    /// Paints one flame of that many rows; takes one draw a row.
    static void drawFlame(PixelCanvas& canvas, double height, const Skin& skin, SeededRNG& rng);

    /// The signs that light up on the belly, each of the same size; # marks the carved pixels.
    static std::span<const LetterRows> runes();

    static Frame burn(const Burn& moment);

    /// A swarm of items `time` seconds after its start, 0.3 s between one item and the next.
    /// A null icon flies as a ball of fire.
    static SwarmFrame swarm(double time, std::span<const QImage> icons, std::uint64_t seed,
                            double lift, const Skin& skin);
};

} // namespace vexmoor
