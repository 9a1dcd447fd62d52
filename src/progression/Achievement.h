#pragma once

#include "skins/Skin.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace vexmoor {

struct Progress;

/// A threshold on one measure of the progress. Its identity is `id`. A cheap value: its texts are
/// views of constants.
struct Achievement {
    /// How the target and the measure are shown.
    enum class Unit { count, bytes, days };

    std::string_view id; ///< stored with the progress
    std::string_view title;
    std::string_view flavour;                            ///< one sentence
    std::int64_t target = 0;                             ///< earned at this and above
    std::int64_t (*progress)(const Progress&) = nullptr; ///< the measure
    const Skin* reward = nullptr;                        ///< the skin that it unlocks, if any
    bool secret = false;                                 ///< hidden until it is earned
    Unit unit = Unit::count;

    /// The catalogue, in the order of checking, of unlocking and of display. Any thread.
    static std::span<const Achievement> all();
};

} // namespace vexmoor
