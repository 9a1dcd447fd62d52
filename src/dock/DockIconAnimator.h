#pragma once

#include "DockTile.h"
#include "FrameTimer.h"
#include "IconSink.h"

#include "intake/Ports.h"

#include <QImage>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace vexmoor {

/// Draws the application's icon: the bubbling cauldron when idle, one burn per item or one swarm
/// for many items, and the flames above the tile if they may leave it. Batches are queued. Main
/// thread.
class DockIconAnimator : public BatchAnimation {
  public:
    using Images = std::vector<std::optional<QImage>>;

    /// The animator's dependencies; all must outlive it.
    struct Surroundings {
        IconSink& icon;
        /// Creates the flame window on first use.
        std::function<std::unique_ptr<FlameWindow>()> makeOverlay;
        const Accessibility& accessibility;
        const DockTile& tile;
        const Screens& screens;
        MakeFrameTimer makeTimer;
        std::function<std::uint64_t()> random;
    };

    static constexpr double kFps = 24;
    static constexpr double kIdleFps = 8;
    static constexpr std::size_t kSwarmFrom = 3; ///< number of items from which a batch is a swarm
    static constexpr std::size_t kSwarmIcons = 10; ///< maximum number of items shown in a swarm

    explicit DockIconAnimator(Surroundings surroundings);
    ~DockIconAnimator() override;

    /// Queues the animation of a batch: one image per item, nullopt for an item without a picture.
    void play(Images images);
    void play(std::vector<PicturePointer> pictures) override;

    /// Starts or restarts the idle animation.
    void startIdle();

    [[nodiscard]] bool isPlaying() const { return m_run.has_value(); }

    /// Sets whether flames may leave the tile; true by default. Read at the start of each
    /// animation.
    void setEscapeDock(bool escape) { m_escapeDock = escape; }
    /// Sets by how many canvas rows the flame window is raised.
    void setNudgeRows(int rows) { m_nudgeRows = rows; }

    /// Stops the timers and hides the flames while the icon is not visible; animations continue
    /// afterwards.
    void setSuspended(bool suspended);
    /// Shows the idle pot without animation or flames, for users who prefer reduced motion.
    void setStill(bool still);

    /// Returns the icon part of a frame: the square with the pot and the lowest flames.
    static PixelCanvas iconOf(const PixelCanvas& scene);

    /// Returns the number of frames of a swarm of that many icons.
    static int swarmFrames(std::size_t icons);

  private:
    struct Burn {
        QImage icon;
        bool full = false; ///< the flame may leave the tile
    };
    struct Swarm {
        std::vector<QImage> icons;
    };
    using Drop = std::variant<Burn, Swarm>;

    /// The current animation.
    struct Run {
        Drop drop;
        std::uint64_t seed = 1;
        double lift = 0;
        int frame = 0;
        int frames = 0;
    };

    void next();
    [[nodiscard]] bool canEscape() const;
    [[nodiscard]] double startingLift() const;
    void tick();
    void idle();
    void draw(const Burn& burn, const Run& run);
    void draw(const Swarm& swarm, const Run& run);
    void showIcon(const PixelCanvas& scene);
    void followTile(const PixelCanvas& flame, bool wide);
    FlameWindow& overlay();
    void orderOut();
    void startTimer();
    void startIdleTimer();

    Surroundings m_surroundings;
    std::deque<Drop> m_queue;
    std::unique_ptr<FrameTimer> m_timer;
    std::unique_ptr<FrameTimer> m_idleTimer;
    int m_idleTick = 0;
    std::optional<Run> m_run;
    std::unique_ptr<FlameWindow> m_overlay;
    std::optional<PixelCanvas> m_shown; ///< the last icon set
    bool m_escapeDock = true;
    bool m_idling = false;
    bool m_suspended = false;
    bool m_still = false;
    int m_nudgeRows = 0;
};

} // namespace vexmoor
