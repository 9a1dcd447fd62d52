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

/// Owns the application's icon: the bubbling cauldron while nothing happens, a burn for each item
/// offered or one swarm for many, and the flames above the tile where they may leave it. Batches
/// wait for one another. Main thread.
class DockIconAnimator : public BatchAnimation {
  public:
    using Images = std::vector<std::optional<QImage>>;

    /// What it works with; all must outlive the animator.
    struct Surroundings {
        IconSink& icon;
        /// Makes the window for the flames, at its first use.
        std::function<std::unique_ptr<FlameWindow>()> makeOverlay;
        const Accessibility& accessibility;
        const DockTile& tile;
        const Screens& screens;
        MakeFrameTimer makeTimer;
        std::function<std::uint64_t()> random;
    };

    static constexpr double kFps = 24;
    static constexpr double kIdleFps = 8;
    static constexpr std::size_t kSwarmFrom = 3;   ///< items from which a batch is one swarm
    static constexpr std::size_t kSwarmIcons = 10; ///< that a swarm shows at most

    explicit DockIconAnimator(Surroundings surroundings);
    ~DockIconAnimator() override;

    /// Queues the animation of one batch: one image an item, absent where there is none.
    void play(Images images);
    void play(std::vector<PicturePointer> pictures) override;

    /// Starts the idle animation, or starts it again.
    void startIdle();

    [[nodiscard]] bool isPlaying() const { return m_run.has_value(); }

    /// Whether flames may leave the tile; true at first. Decided at each animation's start.
    void setEscapeDock(bool escape) { m_escapeDock = escape; }
    /// Canvas rows by which the flame window is raised.
    void setNudgeRows(int rows) { m_nudgeRows = rows; }

    /// Stops the clock while nobody can see the icon, and hides the flames; all goes on afterwards.
    void setSuspended(bool suspended);
    /// Shows the idle pot without motion and no flames, for users who want less motion.
    void setStill(bool still);

    /// The part of a frame that is the icon: the square with the pot and the lowest flames.
    static PixelCanvas iconOf(const PixelCanvas& scene);

    /// How many frames a swarm of that many icons lasts.
    static int swarmFrames(std::size_t icons);

  private:
    struct Burn {
        QImage icon;
        bool full = false; ///< the flame leaves the tile
    };
    struct Swarm {
        std::vector<QImage> icons;
    };
    using Drop = std::variant<Burn, Swarm>;

    /// The animation on the screen.
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
    std::optional<PixelCanvas> m_shown; ///< the icon as last set
    bool m_escapeDock = true;
    bool m_idling = false;
    bool m_suspended = false;
    bool m_still = false;
    int m_nudgeRows = 0;
};

} // namespace vexmoor
