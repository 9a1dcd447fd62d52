#include "art/CauldronArt.h"
#include "dock/Compositor.h"
#include "dock/DockIconAnimator.h"
#include "dock/FlameOverlayWindow.h"
#include "dock/OwnDock.h"
#include "dock/TileWindow.h"

#include <QApplication>

#include <malloc.h>

#include <cstdlib>
#include <iostream>

// Burns items on a real display, painting each frame as soon as possible, and prints the memory
// growth after the first tenth of the burns.
//   burn_growth [BURNS]

namespace {

using namespace vexmoor;

/// A clock that the program advances.
struct SteppedTimer : FrameTimer {
    std::function<void()> fire;
    void start(Interval, std::function<void()> callback) override { fire = std::move(callback); }
    void stop() override { fire = nullptr; }
};

/// Stores nothing.
struct NoDefaults : UserDefaults {
    [[nodiscard]] std::optional<Value> value(std::string_view) const override { return {}; }
    void assign(std::string_view, std::optional<Value>) override {}
    Result<void> transaction(const std::function<void()>& body, Durability) override {
        body();
        return {};
    }
    Result<void> makeDurable() override { return {}; }
};

struct Growth {
    NoDefaults defaults;
    Compositor compositor;
    TileWindow tileWindow{defaults, compositor};
    OwnDock dock{[] { return true; }, [this] { return tileWindow.frame(); }};
    SessionScreens screens;
    DockTile tile{dock, screens};
    std::vector<SteppedTimer*> timers;
    std::uint64_t seed = 0;
    DockIconAnimator animator{
        {.icon = tileWindow,
         .makeOverlay = [this] { return std::make_unique<FlameOverlayWindow>(compositor); },
         .accessibility = dock,
         .tile = tile,
         .screens = screens,
         .makeTimer =
             [this] {
                 auto timer = std::make_unique<SteppedTimer>();
                 timers.push_back(timer.get());
                 return timer;
             },
         .random = [this] { return ++seed; }}};

    void burn(const QImage& picture) {
        animator.play(DockIconAnimator::Images{picture});
        while (animator.isPlaying()) {
            const auto frame = timers.front()->fire;
            frame();
            QCoreApplication::processEvents();
        }
    }
};

std::size_t heapInUse() {
    return mallinfo2().uordblks;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const int burns = argc > 1 ? std::atoi(argv[1]) : 10000;
    QImage picture(64, 64, QImage::Format_ARGB32_Premultiplied);
    picture.fill(QColor(0xf4, 0xd0, 0x5c));
    Growth growth;
    growth.tileWindow.show();
    growth.animator.startIdle();
    std::size_t before = 0;
    for (int i = 0; i < burns; ++i) {
        if (i == burns / 10)
            before = heapInUse();
        growth.burn(picture);
    }
    const auto bytes = static_cast<std::int64_t>(heapInUse()) - static_cast<std::int64_t>(before);
    std::cout << burns << " burns: " << bytes << " bytes of heap more\n";
}
