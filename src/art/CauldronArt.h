#pragma once

#include "PixelCanvas.h"
#include "SeededRNG.h"

#include "skins/Skin.h"

#include <span>

namespace vexmoor {

/// Paints the cauldron: idle, burning one item, or with a swarm of items. The output depends only
/// on the arguments. Thread-safe, except for the current skin, which belongs to the main thread.
class CauldronArt {
  public:
    /// The size of each frame. The pot's feet are in the last row.
    static constexpr int kWidth = 34;
    static constexpr int kHeight = 54;
    /// The columns by which a swarm's flame canvas is wider than the frame on each side.
    static constexpr int kSwarmMargin = 16;
    /// The row on which flames stand, just above the acid.
    static constexpr int kFlameBase = 27;

    /// The pot with everything in or behind it, and the flames separately, to be shown above the
    /// tile.
    struct Frame {
        PixelCanvas scene;
        PixelCanvas flame;
    };

    /// Like Frame, but the flame canvas is kSwarmMargin columns wider on each side: its column
    /// kSwarmMargin is the scene's column 0.
    struct SwarmFrame {
        PixelCanvas scene;
        PixelCanvas flame;
    };

    /// The state of one frame of the burn.
    struct Burn {
        double t = 0;             ///< position in the burn, 0 to 1
        double height = 0;        ///< flame height in rows
        bool simmer = false;      ///< the acid boils and lights the pot
        QImage icon = {};         ///< the item's picture; null for none
        std::uint64_t seed = 1;   ///< the frame's random seed
        bool splitAtPool = false; ///< another window shows the flame's upper part
        double lift = 0;          ///< the floating pot's offset when the burn began
        const Skin& skin;
    };

    /// Returns the selected skin; iron by default.
    static const Skin& current();
    static void setCurrent(const Skin& skin);

    /// Paints the pot, raised by `lift` rows. If `ground` is given, only the floating rows go on
    /// `pot` and the others on `ground`.
    static void drawPot(PixelCanvas& pot, PixelCanvas* ground, const Skin& skin, int lift);

    /// Returns an idle frame. A tick is an eighth of a second. `still` omits bubbles and bobbing.
    static PixelCanvas idle(int tick, bool still, double subtick, const Skin& skin);

    /// Returns the height in rows of a floating pot above its standard position; 0 for other pots.
    static double hoverLift(double tick, const Skin& skin);

    /// Paints a flame of `height` rows. Takes one random number per row.
    static void drawFlame(PixelCanvas& canvas, double height, const Skin& skin, SeededRNG& rng);

    /// Returns the runes that light up on the pot's belly, all of one size; # marks their pixels.
    static std::span<const LetterRows> runes();

    static Frame burn(const Burn& moment);

    /// Returns a frame of a swarm `time` seconds after its start. Items start 0.3 s apart. A null
    /// icon is drawn as a ball of fire.
    static SwarmFrame swarm(double time, std::span<const QImage> icons, std::uint64_t seed,
                            double lift, const Skin& skin);
};

} // namespace vexmoor
